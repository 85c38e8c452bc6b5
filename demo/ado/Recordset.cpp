#include "demo/ado/Recordset.h"

#include <array>

#include "demo/ado/AdoErrors.h"
#include "demo/ado/Connection.h"
#include "demo/ado/Fields.h"

namespace demo::ado {

using blattwart::ObjectPtr;
using blattwart::Value;

namespace {

namespace recordsetMember {
enum : std::int32_t {
    collect = -8,
    eof = 1006,
    close = 1014,
    moveNext = 1018,
    moveFirst = 1020,
    open = 1022,
    update = 1025,
    clone = 1034,
    state = 1054
};
}  // namespace recordsetMember

constexpr std::int32_t lockUnspecified = -1;
constexpr std::int32_t lockReadOnly = 1;

bool suits(FieldKind kind, const Value& value) {
    switch (kind) {
        case FieldKind::boolean:
            return value.is<bool>();
        case FieldKind::byte:
            return value.is<std::uint8_t>();
        case FieldKind::smallInteger:
            return value.is<std::int16_t>();
        case FieldKind::integer:
            return value.is<std::int32_t>();
        case FieldKind::single:
            return value.is<float>();
        case FieldKind::doubleFloat:
            return value.is<double>();
        case FieldKind::currency:
            return value.is<blattwart::Currency>();
        case FieldKind::date:
            return value.is<blattwart::Date>();
        case FieldKind::text:
            break;
    }
    return value.is<std::wstring>();
}

std::shared_ptr<Connection> connectionIn(const Value& value) {
    const auto* object = value.as<ObjectPtr>();
    auto connection = object ? std::dynamic_pointer_cast<Connection>(*object) : nullptr;
    if (!connection) fail(AdoError::invalidConnection);
    return connection;
}

}  // namespace

std::span<const MemberName> Recordset::members() const {
    static constexpr std::array names = {MemberName{L"Fields", defaultMember},
                                         MemberName{L"Collect", recordsetMember::collect},
                                         MemberName{L"EOF", recordsetMember::eof},
                                         MemberName{L"Close", recordsetMember::close},
                                         MemberName{L"MoveNext", recordsetMember::moveNext},
                                         MemberName{L"MoveFirst", recordsetMember::moveFirst},
                                         MemberName{L"Open", recordsetMember::open},
                                         MemberName{L"Update", recordsetMember::update},
                                         MemberName{L"Clone", recordsetMember::clone},
                                         MemberName{L"State", recordsetMember::state}};
    return names;
}

Value Recordset::invoke(std::int32_t id, Access access, Arguments arguments) {
    if (id == defaultMember) return defaultValue(access, arguments);
    if (id == recordsetMember::collect) return collect(access, arguments);
    requireRead(access);
    switch (id) {
        case recordsetMember::eof:
            return atEnd();
        case recordsetMember::close:
            close();
            return {};
        case recordsetMember::moveNext:
            moveNext();
            return {};
        case recordsetMember::moveFirst:
            moveFirst();
            return {};
        case recordsetMember::open:
            open(arguments);
            return {};
        case recordsetMember::update:
            update();
            return {};
        case recordsetMember::clone:
            return clone(numberAt(arguments, 0, lockUnspecified));
        case recordsetMember::state:
            return std::int32_t{rows_ ? 1 : 0};
        default:
            fail(AdoError::memberNotFound);
    }
}

Value Recordset::defaultValue(Access access, Arguments arguments) {
    if (access == Access::put) return collect(access, arguments);
    const auto fields = std::make_shared<Fields>(shared_from_this());
    return arguments.empty() ? Value(ObjectPtr(fields)) : fields->invoke(defaultMember, access, arguments);
}

Value Recordset::collect(Access access, Arguments arguments) {
    const auto field = fieldIndex(argumentAt(arguments, 0));
    if (access != Access::put) return fieldValue(field);
    setFieldValue(field, argumentAt(arguments, 1));
    return {};
}

RowSet& Recordset::openRows() const {
    if (!rows_) fail(AdoError::objectClosed);
    return *rows_;
}

bool Recordset::atEnd() const {
    return position_ >= openRows().rows.size();
}

void Recordset::requireRow() const {
    if (atEnd()) fail(AdoError::noCurrentRow);
}

void Recordset::open(Arguments arguments) {
    if (rows_) fail(AdoError::objectOpen);
    const auto source = textAt(arguments, 0);
    const auto connection = connectionIn(argumentAt(arguments, 1));
    constexpr std::size_t lockTypePosition = 3;
    const auto lockType = numberAt(arguments, lockTypePosition, lockReadOnly);
    rows_ = std::make_shared<RowSet>(connection->read(source));
    attach(connection, lockType);
}

void Recordset::attach(const std::shared_ptr<Connection>& connection, std::int32_t lockType) {
    connection->adopt(weak_from_this());
    connection_ = connection;
    readOnly_ = lockType == lockReadOnly;
    position_ = 0;
}

ObjectPtr Recordset::clone(std::int32_t lockType) {
    openRows();
    if (lockType != lockUnspecified && lockType != lockReadOnly) fail(AdoError::invalidArgument);
    const auto copy = std::make_shared<Recordset>();
    copy->rows_ = rows_;
    copy->attach(connection_, readOnly_ ? lockReadOnly : lockType);
    return copy;
}

void Recordset::close() {
    openRows();
    if (!changes_.empty()) fail(AdoError::illegalOperation);
    drop();
}

void Recordset::drop() {
    rows_.reset();
    connection_.reset();
    changes_.clear();
}

void Recordset::moveTo(std::size_t row) {
    update();
    position_ = row;
}

void Recordset::moveFirst() {
    if (openRows().rows.empty()) fail(AdoError::noCurrentRow);
    moveTo(0);
}

void Recordset::moveNext() {
    requireRow();
    moveTo(position_ + 1);
}

void Recordset::update() {
    auto& rows = openRows().rows;
    for (auto& [field, value] : changes_) rows[position_][field] = std::move(value);
    changes_.clear();
}

std::size_t Recordset::fieldCount() const {
    return rows_ ? rows_->fields.size() : 0;
}

const std::wstring& Recordset::fieldName(std::size_t field) const {
    return openRows().fields[field].name;
}

std::size_t Recordset::fieldIndex(const Value& nameOrPosition) const {
    auto index = fieldCount();
    if (const auto* name = nameOrPosition.as<std::wstring>()) {
        index = 0;
        while (index < fieldCount() && !equalIgnoringCase(fieldName(index), *name)) ++index;
    } else if (const auto* wide = nameOrPosition.as<std::int32_t>()) {
        index = static_cast<std::size_t>(*wide);
    } else if (const auto* narrow = nameOrPosition.as<std::int16_t>()) {
        index = static_cast<std::size_t>(*narrow);
    }
    if (index >= fieldCount()) fail(AdoError::itemNotFound);
    return index;
}

Value Recordset::fieldValue(std::size_t field) const {
    requireRow();
    const auto change = changes_.find(field);
    return change != changes_.end() ? change->second : rows_->rows[position_][field];
}

void Recordset::setFieldValue(std::size_t field, const Value& value) {
    requireRow();
    if (readOnly_) fail(AdoError::notUpdatable);
    if (!value.isNull() && !suits(rows_->fields[field].kind, value)) fail(AdoError::typeMismatch);
    changes_[field] = value;
}

}  // namespace demo::ado

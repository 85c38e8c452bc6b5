#include "data/Recordset.h"

#include "platform/Conversions.h"

namespace blattwart {

namespace {

constexpr std::wstring_view recordset = L"Recordset";

}  // namespace

bool Recordset::atEnd() {
    return toBool(object_->get({recordset, L"EOF"}));
}

void Recordset::MoveFirst() {
    object_->call({recordset, L"MoveFirst"});
}

void Recordset::MoveNext() {
    object_->call({recordset, L"MoveNext"});
}

void Recordset::Update() {
    object_->call({recordset, L"Update"});
}

std::int32_t Recordset::number(std::wstring_view column) {
    return toInt32(value(column), locale_);
}

double Recordset::real(std::wstring_view column) {
    return toDouble(value(column), locale_);
}

std::wstring Recordset::text(std::wstring_view column) {
    return toText(value(column), locale_);
}

std::wstring Recordset::textOrNothing(std::wstring_view column) {
    std::wstring result;
    ignoringErrors([&] { result = text(column); });
    return result;
}

void Recordset::put(std::wstring_view column, const std::wstring& text) {
    field(column).put({L"Field", L"Value"}, text);
}

AutomationObject& Recordset::field(std::wstring_view column) {
    if (!fields_) fields_ = toObject(object_->get({recordset, L"Fields"}));
    ObjectPtr& field = columns_[column];
    if (!field) field = toObject(fields_->call({L"Fields", L"Item"}, {Value(column)}));
    return *field;
}

Value Recordset::value(std::wstring_view column) {
    return field(column).get({L"Field", L"Value"});
}

}  // namespace blattwart

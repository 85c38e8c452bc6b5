#include "demo/dxf/Object.h"

#include <algorithm>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

bool isXData(const Group& group) {
    return group.code >= 1000;
}
bool isListBegin(const Group& group) {
    return group.code == 102 && group.value.starts_with("{");
}
bool isListEnd(const Group& group) {
    return group.code == 102 && group.value.starts_with("}");
}

/// Index of the first group of the code in the subclass, of the end of that subclass when it is not there, or
/// of the end of the object's own groups when the subclass is not there either.
struct Place {
    std::size_t index = 0;
    bool found = false;
};

Place locate(const Groups& groups, std::int16_t code, std::string_view subclass) {
    bool inside = subclass.empty();
    bool inList = false;
    std::size_t i = 0;
    for (; i < groups.size() && !isXData(groups[i]); ++i) {
        const Group& group = groups[i];
        if (inList || isListBegin(group)) {
            inList = !isListEnd(group);
            continue;
        }
        if (group.code == 100 && !subclass.empty()) {
            if (inside) return {i, false};
            inside = group.value == subclass;
        } else if (inside && group.code == code) {
            return {i, true};
        }
    }
    return {i, false};
}

/// Index of the group that holds the owner or of the place where it belongs: before the first subclass.
Place locateOwner(const Groups& groups) {
    const Place owner = locate(groups, 330, {});
    const Place subclass = locate(groups, 100, {});
    return owner.found && owner.index < subclass.index ? owner : Place{subclass.index, false};
}

std::int16_t handleCode(std::string_view type) {
    return type == "DIMSTYLE" ? 105 : 5;
}

Place locateHandle(const std::string& type, const Groups& groups) {
    const Place handle = locate(groups, handleCode(type), {});
    const Place subclass = locate(groups, 100, {});
    return handle.found && handle.index < subclass.index ? handle : Place{0, false};
}

XDataItem itemAt(const Groups& groups, std::size_t& i) {
    const Group& group = groups[i++];
    XDataItem item{group.code, {}};
    if (group.code >= 1010 && group.code <= 1019) {
        Point point = {group.number(), 0, 0};
        for (std::int16_t axis = 1; axis < 3; ++axis) {
            if (i < groups.size() && groups[i].code == group.code + 10 * axis)
                point[static_cast<std::size_t>(axis)] = groups[i++].number();
        }
        item.value = point;
    } else if (group.code >= 1040 && group.code <= 1042) {
        item.value = group.number();
    } else if (group.code >= 1070) {
        item.value = static_cast<std::int32_t>(group.integer());
    } else {
        item.value = group.text();
    }
    return item;
}

void appendGroups(Groups& groups, const XDataItem& item) {
    if (const auto* text = std::get_if<std::wstring>(&item.value)) {
        groups.push_back(textGroup(item.code, *text));
    } else if (const auto* number = std::get_if<double>(&item.value)) {
        groups.push_back(numberGroup(item.code, *number));
    } else if (const auto* whole = std::get_if<std::int32_t>(&item.value)) {
        groups.push_back(integerGroup(item.code, *whole));
    } else {
        const auto& point = std::get<Point>(item.value);
        for (std::size_t axis = 0; axis < point.size(); ++axis)
            groups.push_back(numberGroup(static_cast<std::int16_t>(item.code + 10 * axis), point[axis]));
    }
}

}  // namespace

Object::Object(std::string type, Groups groups) : type_(std::move(type)), groups_(std::move(groups)) {
    const Place place = locateHandle(type_, groups_);
    if (place.found) handle_ = groups_[place.index].handle();
}

Handle Object::owner() const {
    const Place place = locateOwner(groups_);
    return place.found ? groups_[place.index].handle() : 0;
}

void Object::setHandle(Handle handle) {
    handle_ = handle;
    const Group group = handleGroup(handleCode(type_), handle);
    const Place place = locateHandle(type_, groups_);
    if (place.found)
        groups_[place.index] = group;
    else
        groups_.insert(groups_.begin(), group);
}

void Object::setOwner(Handle owner) {
    const Place place = locateOwner(groups_);
    const auto position = groups_.begin() + static_cast<std::ptrdiff_t>(place.index);
    if (place.found)
        *position = handleGroup(330, owner);
    else
        groups_.insert(position, handleGroup(330, owner));
}

const Group* Object::find(std::int16_t code, std::string_view subclass) const {
    const Place place = locate(groups_, code, subclass);
    return place.found ? &groups_[place.index] : nullptr;
}

std::wstring Object::text(std::int16_t code, std::string_view subclass) const {
    const Group* group = find(code, subclass);
    return group ? group->text() : std::wstring();
}

double Object::number(std::int16_t code, double fallback, std::string_view subclass) const {
    const Group* group = find(code, subclass);
    return group ? group->number() : fallback;
}

std::int64_t Object::integer(std::int16_t code, std::int64_t fallback, std::string_view subclass) const {
    const Group* group = find(code, subclass);
    return group ? group->integer() : fallback;
}

Handle Object::reference(std::int16_t code, std::string_view subclass) const {
    const Group* group = find(code, subclass);
    return group ? group->handle() : 0;
}

Point Object::point(std::int16_t code, std::string_view subclass) const {
    const auto axis = [&](int offset) {
        return number(static_cast<std::int16_t>(code + offset), 0, subclass);
    };
    return {axis(0), axis(10), axis(20)};
}

void Object::set(Group group, std::string_view subclass) {
    const Place place = locate(groups_, group.code, subclass);
    const auto position = groups_.begin() + static_cast<std::ptrdiff_t>(place.index);
    if (place.found)
        *position = std::move(group);
    else
        groups_.insert(position, std::move(group));
}

XData Object::xdata(std::wstring_view application) const {
    XData data;
    bool wanted = false;
    for (std::size_t i = 0; i < groups_.size();) {
        if (!isXData(groups_[i])) {
            ++i;
            continue;
        }
        XDataItem item = itemAt(groups_, i);
        if (item.code == 1001)
            wanted = application.empty() || sameName(std::get<std::wstring>(item.value), application);
        if (wanted) data.push_back(std::move(item));
    }
    return data;
}

void Object::replaceXData(std::wstring_view application, const XData& data) {
    Groups added;
    for (const XDataItem& item : data) appendGroups(added, item);
    bool removing = false;
    std::erase_if(groups_, [&](const Group& group) {
        if (group.code == 1001) removing = sameName(group.text(), application);
        return removing && isXData(group);
    });
    groups_.insert(groups_.end(), added.begin(), added.end());
}

}  // namespace demo

#include "demo/dxf/Object.h"

#include <algorithm>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

bool isPointer(std::int16_t code) {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

}  // namespace

Object::Object(std::string type, const Groups& record) : type_(std::move(type)) {
    const std::int16_t handleCode = type_ == "DIMSTYLE" ? 105 : 5;
    bool inList = false;
    for (std::size_t i = 0; i < record.size();) {
        const Group& group = record[i];
        if (group.code >= 1000) {
            XDataItem item = xdataItem(record, i);
            if (xdataKind(item.code) != XDataKind::unknown) xdata_.push_back(std::move(item));
            continue;
        }
        ++i;
        if (group.code == 102)
            inList = group.value.starts_with("{");
        else if (inList)
            continue;
        else if (group.code == handleCode && handle_ == 0)
            handle_ = group.handle();
        else if (group.code == 330 && owner_ == 0)
            owner_ = group.handle();
        else if (!isPointer(group.code))
            groups_.push_back(group);
    }
}

std::wstring Object::text(std::int16_t code) const {
    const Group* group = findGroup(groups_, code);
    return group ? group->text() : std::wstring();
}

double Object::number(std::int16_t code, double fallback) const {
    const Group* group = findGroup(groups_, code);
    return group ? group->number() : fallback;
}

std::int64_t Object::integer(std::int16_t code, std::int64_t fallback) const {
    const Group* group = findGroup(groups_, code);
    return group ? group->integer() : fallback;
}

Point Object::point(std::int16_t code) const {
    const auto axis = [&](int offset) { return number(static_cast<std::int16_t>(code + offset)); };
    return {axis(0), axis(10), axis(20)};
}

void Object::set(Group group) {
    const auto found = std::ranges::find(groups_, group.code, &Group::code);
    if (found == groups_.end())
        groups_.push_back(std::move(group));
    else
        *found = std::move(group);
}

XData Object::xdata(std::wstring_view application) const {
    XData data;
    bool wanted = false;
    for (const XDataItem& item : xdata_) {
        if (item.code == 1001)
            wanted = application.empty() || sameName(std::get<std::wstring>(item.value), application);
        if (wanted) data.push_back(item);
    }
    return data;
}

void Object::replaceXData(const XData& data) {
    const auto& application = std::get<std::wstring>(data.front().value);
    bool removing = false;
    std::erase_if(xdata_, [&](const XDataItem& item) {
        if (item.code == 1001) removing = sameName(std::get<std::wstring>(item.value), application);
        return removing;
    });
    if (data.size() > 1) xdata_.insert(xdata_.end(), data.begin(), data.end());
}

}  // namespace demo

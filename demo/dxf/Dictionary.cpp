#include "demo/dxf/Dictionary.h"

#include <algorithm>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

bool isEntry(const Groups& groups, std::size_t i) {
    return groups[i].code == 3 && i + 1 < groups.size() &&
           (groups[i + 1].code == 350 || groups[i + 1].code == 360);
}

/// Index of the name's group of the first entry that fits; the number of groups when there is none.
template <class Predicate>
std::size_t findEntry(const Groups& groups, Predicate fits) {
    std::size_t i = 0;
    while (i < groups.size() && !(isEntry(groups, i) && fits(groups[i], groups[i + 1]))) ++i;
    return i;
}

std::size_t findObject(const Groups& groups, Handle object) {
    return findEntry(groups, [&](const Group&, const Group& entry) { return entry.handle() == object; });
}

}  // namespace

bool isDictionary(const Object& object) {
    return object.type() == "DICTIONARY" || object.type() == "ACDBDICTIONARYWDFLT";
}

Handle dictionaryEntry(const Object& dictionary, std::wstring_view name) {
    const Groups& groups = dictionary.groups();
    const std::size_t i =
        findEntry(groups, [&](const Group& entry, const Group&) { return sameName(entry.text(), name); });
    return i < groups.size() ? groups[i + 1].handle() : 0;
}

std::wstring dictionaryName(const Object& dictionary, Handle object) {
    const std::size_t i = findObject(dictionary.groups(), object);
    return i < dictionary.groups().size() ? dictionary.groups()[i].text() : std::wstring();
}

void addDictionaryEntry(Object& dictionary, std::wstring_view name, Handle object) {
    Groups& groups = dictionary.mutableGroups();
    // Behind the last entry: a dictionary with default and extended data follow.
    std::size_t position = groups.size();
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (isEntry(groups, i)) position = i + 2;
    }
    if (position == groups.size()) {
        const auto data = std::ranges::find_if(groups, [](const Group& g) { return g.code >= 1000; });
        position = static_cast<std::size_t>(data - groups.begin());
    }
    const auto where = groups.begin() + static_cast<std::ptrdiff_t>(position);
    groups.insert(where, {textGroup(3, name), handleGroup(350, object)});
}

void removeDictionaryEntry(Object& dictionary, Handle object) {
    Groups& groups = dictionary.mutableGroups();
    const std::size_t i = findObject(groups, object);
    if (i == groups.size()) return;
    const auto entry = groups.begin() + static_cast<std::ptrdiff_t>(i);
    groups.erase(entry, entry + 2);
}

}  // namespace demo

#pragma once

#include "demo/dxf/Object.h"

/// Objects of type DICTIONARY: names (group 3), each followed by the handle of an object (350 or 360).
namespace demo {

bool isDictionary(const Object& object);
/// The handle under a name; 0 when there is none.
Handle dictionaryEntry(const Object& dictionary, std::wstring_view name);
/// The name of an object; "" when it is not in the dictionary.
std::wstring dictionaryName(const Object& dictionary, Handle object);
void addDictionaryEntry(Object& dictionary, std::wstring_view name, Handle object);
void removeDictionaryEntry(Object& dictionary, Handle object);

}  // namespace demo

#include "data/Collection.h"

#include <gtest/gtest.h>

namespace blattwart::test {
namespace {

std::wstring contents(const Collection<wchar_t>& collection) {
    std::wstring result;
    for (const auto& element : collection) result += *element;
    return result;
}

Collection<wchar_t> lettersWithKeys() {
    Collection<wchar_t> collection;
    collection.Add(std::make_shared<wchar_t>(L'a'), L"12");
    collection.Add(std::make_shared<wchar_t>(L'b'));
    collection.Add(std::make_shared<wchar_t>(L'c'), L"1");
    return collection;
}

TEST(CollectionTest, TellsKeysFromPositionsAndKeepsTheOrder) {
    const Collection<wchar_t> collection = lettersWithKeys();
    EXPECT_EQ(L"abc", contents(collection));
    EXPECT_EQ(L'c', *collection.Item(L"1"));
    EXPECT_EQ(L'a', *collection.Item(1));
    EXPECT_EQ(collection.Item(L"12"), collection.Item(1));
    for (const std::int32_t position : {0, -1, 4}) EXPECT_THROW(collection.Item(position), RuntimeError);
    for (const wchar_t* key : {L"", L"01", L"2"}) EXPECT_THROW(collection.Item(key), RuntimeError);
}

}  // namespace
}  // namespace blattwart::test

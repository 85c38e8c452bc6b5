// Bytes that other programs left in the registry, and texts that the program writes there itself.
#include "data/basRegistry.h"
#include "data/CRegistry.h"
#include "Input.h"
#include "support/FakeFiles.h"
#include "support/FakeRegistry.h"

using namespace blattwart;
using fuzz::require;

namespace {

constexpr const char* path = "SOFTWARE\\Ormeda\\Tarvix 2.1";
constexpr std::size_t longest = 255;

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto type = fuzz::Input::number<std::uint32_t>(input.line());
    std::string bytes(input.line());
    while (!input.atEnd()) bytes.append("\n").append(input.line());

    test::FakeRegistry registry;
    test::FakeFiles files;
    const test::GermanLocale locale;
    for (const char* name : {"DefDB", "LM_Beenden"})
        registry.store(RegistryRoot::localMachine, path, name, {type, bytes});

    CRegistry values(registry, locale);
    const std::wstring read = values.TX_DefDB();
    require(read.size() <= longest, "a text fits into the buffer");
    require(read.find(L'\0') == std::wstring::npos, "a text ends at its NUL");
    require(locale.fromAnsi(bytes).starts_with(read), "a text is what was stored");
    const basRegistry program(registry, locale, files);
    require(!program.GetDatabasePath().empty(), "there is always a path of the database");
    program.GetAutoEnd();

    const std::wstring text = locale.fromAnsi(bytes);
    values.TX_DefDB(text);
    const bool readable = text.size() <= longest && text.find(L'\0') == std::wstring::npos;
    if (readable) require(values.TX_DefDB() == text, "a text is read as it was written");
    for (const std::int16_t number : {std::int16_t{0}, std::int16_t{1}}) {
        program.SetAutoEnd(number);
        require(program.GetAutoEnd() == number, "a number is read as it was written");
    }
    require(registry.openKeys() == 0, "every key is closed");
    return 0;
}

#include "data/DatabaseMaker.h"

#include <algorithm>
#include <array>

#include "data/NewDatabase.h"

namespace blattwart {

namespace {

constexpr std::wstring_view silently = L"/still";

/// Why the database cannot be made, for the user.
std::wstring reasonOf(const RuntimeError& error) {
    constexpr std::array<std::uint32_t, 3> noProvider{0x800401F3,   // the name of the class is unknown
                                                      0x80040154,   // the class is not registered
                                                      0x800A0E7A};  // ADO does not find the provider
    if (std::ranges::find(noProvider, static_cast<std::uint32_t>(error.number())) == noProvider.end())
        return error.description();
    return L"Auf diesem Rechner fehlt das Datenbankmodul (Microsoft Jet 4.0), mit dem auch Blattwart die "
           L"Datenbank liest!";
}

}  // namespace

int DatabaseMaker::run(std::span<const std::wstring> words) {
    const bool silent = !words.empty() && words.front() == silently;
    if (silent) words = words.subspan(1);
    if (words.size() <= 1 && (words.empty() || !words.front().starts_with(L'/')))
        return makeAndTell(words.empty() ? usualFile_ : words.front(), silent);
    if (!silent) tell(L"Aufruf: \"Datenbank anlegen.exe\" [/still] [DATEI]", MessageIcon::exclamation);
    return 2;
}

int DatabaseMaker::makeAndTell(const std::wstring& file, bool silent) {
    std::wstring text;
    MessageIcon icon = MessageIcon::information;
    try {
        text = make(file) ? L"Die Definitionsdatenbank ist angelegt:\n" + file
                          : L"Die Definitionsdatenbank ist schon da und bleibt, wie sie ist:\n" + file;
    } catch (const RuntimeError& error) {
        text = L"Die Definitionsdatenbank kann nicht angelegt werden!\n" + file + L"\n\n" + reasonOf(error);
        icon = MessageIcon::critical;
    }
    if (!silent) tell(text, icon);
    return icon == MessageIcon::critical ? 1 : 0;
}

bool DatabaseMaker::make(const std::wstring& file) {
    if (files_.exists(file)) return false;
    // Nobody meets half a database, and what is removed is nobody else's.
    const std::wstring unfinished = file + L".neu";
    ignoringErrors([&] { files_.remove(unfinished); });
    ObjectPtr catalog = automation_.create(L"ADOX.Catalog");
    try {
        writeNewDatabase(*catalog, unfinished);
        catalog.reset();  // it keeps the file open
        files_.rename(unfinished, file);
        return true;
    } catch (const RuntimeError&) {
        catalog.reset();
        ignoringErrors([&] { files_.remove(unfinished); });
        // Somebody else was quicker, or the folder's drive did not answer before.
        if (files_.exists(file)) return false;
        throw;
    }
}

void DatabaseMaker::tell(const std::wstring& text, MessageIcon icon) {
    messages_.show(text, L"Datenbank anlegen", MessageButtons::ok, icon);
}

}  // namespace blattwart

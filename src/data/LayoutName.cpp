#include "data/LayoutName.h"

namespace blattwart {

std::wstring layoutNameFault(const std::wstring& name, const std::wstring& modelName, const Locale& locale) {
    constexpr std::size_t longestName = 255;
    if (name.empty()) return L"leer";
    if (name.front() == L' ' || name.back() == L' ') return L"beginnt oder endet mit einem Leerzeichen";
    for (const wchar_t c : name) {
        if (c < L' ' || (c >= 0x7F && c < 0xA0)) return L"unzulässiges Steuerzeichen";
        constexpr std::wstring_view forbidden = L"<>/\\\":;?*|,=`'";
        if (forbidden.find(c) != std::wstring_view::npos)
            return L"unzulässiges Zeichen: " + std::wstring(1, c);
    }
    if (name.size() > longestName) return L"länger als 255 Zeichen";
    for (const std::wstring_view model :
         {std::wstring_view(L"Model"), std::wstring_view(L"Modell"), std::wstring_view(modelName)})
        if (locale.equalIgnoringCase(name, model)) return L"„" + name + L"“ ist der Modellbereich";
    return {};
}

}  // namespace blattwart

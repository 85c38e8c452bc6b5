#include "demo/host/HostError.h"

#include <algorithm>
#include <array>

#include "platform/Automation.h"

namespace demo::hostError {

namespace {

struct Text {
    std::int32_t number;
    const wchar_t* german;
    const wchar_t* english;
};

constexpr std::array texts{
    Text{invalidInput, L"Ungültige Eingabe", L"Invalid input"},
    Text{keyNotFound, L"Schlüssel nicht gefunden", L"Key not found"},
    Text{duplicateKey, L"Doppelter Schlüssel", L"Duplicate key"},
    Text{objectErased, L"Objekt wurde gelöscht", L"Object was erased"},
    Text{foreignDrawing, L"", L""},
    Text{fileError, L"Dateifehler", L"File error"},
    Text{variableError, L"Fehler beim Setzen der Systemvariablen", L"Error setting system variable"},
    Text{noDocument, L"Dokumentobjekt konnte nicht abgerufen werden", L"Failed to get the Document object"},
    Text{macroNotFound, L"Makro nicht gefunden", L"Macro not found"},
    Text{vbaMissing, L"VBA ist nicht installiert", L"VBA is not installed"},
    Text{memberNotFound, L"Mitglied nicht gefunden.", L"Member not found."},
    Text{typeMismatch, L"Typenkonflikt.", L"Type mismatch."},
    Text{badParameterCount, L"Ungültige Anzahl von Parametern.", L"Invalid number of parameters."},
    Text{blattwart::hresult::disconnected, L"Das aufgerufene Objekt wurde von den Clients getrennt.",
         L"The object invoked has disconnected from its clients."},
    Text{blattwart::hresult::serverUnavailable, L"Der RPC-Server ist nicht verfügbar.",
         L"The RPC server is unavailable."},
    Text{blattwart::hresult::callRejected, L"Aufruf wurde durch Aufgerufenen abgelehnt.",
         L"Call was rejected by callee."},
};

}  // namespace

blattwart::RuntimeError make(std::int32_t number, Language language) {
    const auto* text = std::ranges::find(texts, number, &Text::number);
    if (text == texts.end()) return {number, L""};
    return {number, language == Language::german ? text->german : text->english};
}

blattwart::RuntimeError fromDrawing(const blattwart::RuntimeError& error) {
    switch (error.number()) {
        case blattwart::errorNumber::invalidCall:
            return {invalidInput, error.description()};
        case blattwart::errorNumber::duplicateKey:
            return {duplicateKey, error.description()};
        case blattwart::errorNumber::elementNotFound:
            return {keyNotFound, error.description()};
        case blattwart::errorNumber::fileNotFound:
            return {fileError, error.description()};
        default:
            return error;
    }
}

}  // namespace demo::hostError

#include "demo/ado/AdoErrors.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"

namespace demo::ado {

namespace {

struct ErrorText {
    AdoError error;
    const wchar_t* text;
};

constexpr ErrorText errorTexts[] = {
    {AdoError::unspecified, L"Unbekannter Fehler"},
    {AdoError::memberNotFound, L"Mitglied nicht gefunden."},
    {AdoError::typeMismatch, L"Typen unverträglich."},
    {AdoError::unknownClass, L"Ungültige Klassenzeichenfolge"},
    {AdoError::badStatement, L"Die Anweisung kann nicht ausgeführt werden."},
    {AdoError::databaseExists, L"Die Datenbank ist bereits vorhanden."},
    {AdoError::tableNotFound,
     L"Das Microsoft Jet-Datenbankmodul findet die Eingangstabelle oder Abfrage nicht. Stellen Sie sicher, "
     L"dass "
     L"sie existiert und dass der Name richtig eingegeben wurde."},
    {AdoError::invalidArgument,
     L"Argumente sind vom falschen Typ, liegen außerhalb des Gültigkeitsbereichs oder stehen miteinander in "
     L"Konflikt."},
    {AdoError::noCurrentRow,
     L"Entweder BOF oder EOF ist True, oder der aktuelle Datensatz wurde gelöscht. Der angeforderte Vorgang "
     L"benötigt einen aktuellen Datensatz."},
    {AdoError::illegalOperation, L"Der Vorgang ist in diesem Zusammenhang nicht zugelassen."},
    {AdoError::notUpdatable, L"Das Objekt oder der Provider kann den angeforderten Vorgang nicht ausführen."},
    {AdoError::itemNotFound,
     L"Ein Objekt, das dem angeforderten Namen oder dem Ordinalverweis entspricht, kann nicht gefunden "
     L"werden."},
    {AdoError::objectClosed, L"Der Vorgang ist für ein geschlossenes Objekt nicht zugelassen."},
    {AdoError::objectOpen, L"Der Vorgang ist für ein geöffnetes Objekt nicht zugelassen."},
    {AdoError::providerNotFound,
     L"Der Provider kann nicht gefunden werden. Er ist eventuell nicht richtig installiert."},
    {AdoError::invalidConnection,
     L"Die Verbindung kann nicht verwendet werden, um diesen Vorgang auszuführen. Sie ist entweder "
     L"geschlossen "
     L"oder in diesem Zusammenhang ungültig."},
};

}  // namespace

void fail(AdoError error) {
    fail(error, std::ranges::find(errorTexts, error, &ErrorText::error)->text);
}

void fail(AdoError error, std::wstring description) {
    throw blattwart::RuntimeError(static_cast<std::int32_t>(error), std::move(description));
}

}  // namespace demo::ado

#include "ado/AdoErrors.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace demo::ado {

namespace {

const wchar_t* textOf(AdoError error) {
    switch (error) {
        case AdoError::memberNotFound:
            return L"Mitglied nicht gefunden.";
        case AdoError::typeMismatch:
            return L"Typen unverträglich.";
        case AdoError::unknownClass:
            return L"Ungültige Klassenzeichenfolge";
        case AdoError::tableNotFound:
            return L"Das Microsoft Jet-Datenbankmodul findet die Eingangstabelle oder Abfrage nicht. Stellen "
                   L"Sie "
                   L"sicher, dass sie existiert und dass der Name richtig eingegeben wurde.";
        case AdoError::invalidArgument:
            return L"Argumente sind vom falschen Typ, liegen außerhalb des Gültigkeitsbereichs oder stehen "
                   L"miteinander in Konflikt.";
        case AdoError::noCurrentRow:
            return L"Entweder BOF oder EOF ist True, oder der aktuelle Datensatz wurde gelöscht. Der "
                   L"angeforderte "
                   L"Vorgang benötigt einen aktuellen Datensatz.";
        case AdoError::illegalOperation:
            return L"Der Vorgang ist in diesem Zusammenhang nicht zugelassen.";
        case AdoError::notUpdatable:
            return L"Das Objekt oder der Provider kann den angeforderten Vorgang nicht ausführen.";
        case AdoError::itemNotFound:
            return L"Ein Objekt, das dem angeforderten Namen oder dem Ordinalverweis entspricht, kann nicht "
                   L"gefunden werden.";
        case AdoError::objectClosed:
            return L"Der Vorgang ist für ein geschlossenes Objekt nicht zugelassen.";
        case AdoError::objectOpen:
            return L"Der Vorgang ist für ein geöffnetes Objekt nicht zugelassen.";
        case AdoError::providerNotFound:
            return L"Der Provider kann nicht gefunden werden. Er ist eventuell nicht richtig installiert.";
        case AdoError::invalidConnection:
            return L"Die Verbindung kann nicht verwendet werden, um diesen Vorgang auszuführen. Sie ist "
                   L"entweder "
                   L"geschlossen oder in diesem Zusammenhang ungültig.";
        case AdoError::unspecified:
            break;
    }
    return L"Unbekannter Fehler";
}

}  // namespace

void fail(AdoError error) {
    fail(error, textOf(error));
}

void fail(AdoError error, std::wstring description) {
    throw blattwart::RuntimeError(static_cast<std::int32_t>(error), std::move(description));
}

}  // namespace demo::ado

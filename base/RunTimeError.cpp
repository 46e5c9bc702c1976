#include "base/RunTimeError.h"

RunTimeError::RunTimeError(int number, const QString &description)
    : std::runtime_error(QStringLiteral("Błąd wykonania '%1': %2").arg(number).arg(description).toStdString()),
      m_number(number), m_description(description)
{
}

QString RunTimeError::message() const
{
    return QString::fromUtf8(what());
}

RunTimeError RunTimeError::within(const QString &where) const
{
    return RunTimeError(m_number, where + QStringLiteral(": ") + m_description);
}

RunTimeError RunTimeError::overflow() { return {Overflow, QStringLiteral("Przepełnienie")}; }
RunTimeError RunTimeError::typeMismatch() { return {TypeMismatch, QStringLiteral("Niezgodność typów")}; }
RunTimeError RunTimeError::invalidUseOfNull() { return {InvalidUseOfNull, QStringLiteral("Nieprawidłowe użycie wartości Null")}; }
RunTimeError RunTimeError::subscriptOutOfRange() { return {SubscriptOutOfRange, QStringLiteral("Indeks poza zakresem")}; }
RunTimeError RunTimeError::duplicateKey()
{
    return {DuplicateKey, QStringLiteral("Ten klucz jest już skojarzony z elementem kolekcji")};
}
RunTimeError RunTimeError::divisionByZero() { return {DivisionByZero, QStringLiteral("Dzielenie przez zero")}; }
RunTimeError RunTimeError::invalidCall() { return {InvalidCall, QStringLiteral("Nieprawidłowe wywołanie procedury lub argument")}; }
RunTimeError RunTimeError::database(const QString &what) { return {DatabaseError, what}; }
RunTimeError RunTimeError::fileNotSaved(const QString &path, const QString &reason)
{
    return {FileAccess, QStringLiteral("Nie można zapisać pliku %1: %2").arg(path, reason)};
}
RunTimeError RunTimeError::noCurrentRecord()
{
    return {NoCurrentRecord, QStringLiteral("Brak bieżącego rekordu: BOF lub EOF ma wartość True albo rekord został usunięty")};
}

RunTimeError RunTimeError::invalidPortNumber()
{
    return {InvalidPortNumber, QStringLiteral("Nieprawidłowy numer portu")};
}

RunTimeError RunTimeError::portNotOpened(const QString &description)
{
    return {PortNotOpened, QStringLiteral("Błąd otwarcia portu szeregowego: ") + description};
}

RunTimeError RunTimeError::objectNotSet()
{
    return {ObjectNotSet, QStringLiteral("Nie ustawiono zmiennej obiektowej lub zmiennej bloku With")};
}
RunTimeError RunTimeError::invalidPropertyArrayIndex()
{
    return {InvalidPropertyArrayIndex, QStringLiteral("Nieprawidłowy indeks tablicy właściwości")};
}
RunTimeError RunTimeError::cycle()
{
    return {Cycle, QStringLiteral("Ta operacja wprowadziłaby cykl")};
}
RunTimeError RunTimeError::elementNotFound()
{
    return {ElementNotFound, QStringLiteral("Nie znaleziono elementu")};
}

#pragma once

#include <QString>
#include <stdexcept>

// A failure of the run-time: a number and a description, as the operator
// sees them in a message box. Thrown where a conversion, an integer range or
// a collection refuses, and caught only at the event boundaries that handle
// it; anywhere else it ends the running event or the process.
class RunTimeError : public std::runtime_error {
public:
    enum Number {
        InvalidCall = 5,
        Overflow = 6,
        SubscriptOutOfRange = 9,
        DivisionByZero = 11,
        TypeMismatch = 13,
        ObjectNotSet = 91,
        FileAccess = 75,
        InvalidUseOfNull = 94,
        InvalidPropertyArrayIndex = 381,
        DuplicateKey = 457,
        DatabaseError = 3000,
        NoCurrentRecord = 3021,
        InvalidPortNumber = 8002,
        PortNotOpened = 8012,
        ElementNotFound = 35601,
        Cycle = 35614,
    };

    RunTimeError(int number, const QString &description);

    int number() const { return m_number; }
    const QString &description() const { return m_description; }
    // "Błąd wykonania '6': Przepełnienie"
    QString message() const;
    // The same error with the place where it happened put in front.
    RunTimeError within(const QString &where) const;

    static RunTimeError overflow();
    static RunTimeError typeMismatch();
    static RunTimeError invalidUseOfNull();
    static RunTimeError subscriptOutOfRange();
    static RunTimeError duplicateKey();
    static RunTimeError divisionByZero();
    static RunTimeError invalidCall();
    static RunTimeError database(const QString &what);
    // A file that could not be written whole; `reason` is the system's word.
    static RunTimeError fileNotSaved(const QString &path, const QString &reason);
    // A row was to be changed where the search found none.
    static RunTimeError noCurrentRecord();
    static RunTimeError invalidPortNumber();
    // The line's port would not open; the system's own description follows the text.
    static RunTimeError portNotOpened(const QString &description);
    // A key that names no node of a tree.
    static RunTimeError elementNotFound();
    // A tree's node put under itself or one of its own.
    static RunTimeError cycle();
    // An object asked for where there is none (no node selected).
    static RunTimeError objectNotSet();
    // A list's entry asked for where none is chosen.
    static RunTimeError invalidPropertyArrayIndex();

private:
    int m_number;
    QString m_description;
};

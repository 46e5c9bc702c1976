#pragma once

#include "db/Database.h"
#include "db/EditableRowSet.h"

#include <QString>
#include <functional>

// The rows of the controller editor: a connection of its own, apart from
// the station's, and the controllers' rows read on it when the editor opens.
// Changes are written when the operator saves; the running controllers
// take them at the next start.
//
// It lies in the database layer because it needs nothing but a connection
// and its statements: the window hands it the station's database
// configuration, and the beep that marks a step past either end.
class clsRegulatory {
public:
    using Signal = std::function<void()>;

    inline static const QString Query = QStringLiteral(
        "select Adres,BKSt1,BKSt2,BKSt3,BKSt4,BKSt5,BKSt6,BKSt7,BKSt8,BKSt9,CzestOdczytu,CzestTrans,Kod,"
        "NapieciePomiar,NrFabryczny,Opis,ProgNapiecie,ProgPrad,ProgTgFi,ProgTgFiMin,Przekladnia,PrzekladniaNap,Typ,"
        "EnCzynnaMin, EnCzynnaMax, EnBiernaCalkMin, EnBiernaCalkMax, EnBiernaPojMin, EnBiernaPojMax, NapiecieMin, "
        "NapiecieMax, PradCzynnyMin, PradCzynnyMax, PradBiernyMin, PradBiernyMax, PradCalkMin, PradCalkMax, "
        "CzestotliwoscMin, CzestotliwoscMax,aktywny,awarCzest from Regulatory");

    // Opens the connection and reads the rows; a failure is a run-time error.
    clsRegulatory(const DatabaseConfig &config, Signal beep);

    // The rows the window's boxes are bound to.
    EditableRowSet &Primary() { return m_rows; }
    // Told whenever the current row has moved or the rows were read again.
    void setMoveComplete(Signal handler) { m_moveComplete = std::move(handler); }

    bool EditingRecord() const { return m_rows.editMode() != EditableRowSet::EditNone; }
    int AbsolutePosition() const { return m_rows.AbsolutePosition(); }
    void AddNew();
    // Deletes the current row, then steps as MoveNext does.
    void Delete();
    void Requery();
    // Writes every changed and added row; after adding, stands on the last row.
    void Update();
    // Drops the current row's changes; after cancelling an added row, stands on the first.
    void Cancel();
    void MoveFirst();
    void MoveLast();
    // A step past the last row beeps and comes back to it; no beep on an empty table.
    void MoveNext();
    // A step before the first row beeps and comes back to it; no beep on an empty table.
    void MovePrevious();
    // Searches forward from the current row only; without a match the rows stand at their end.
    void FindRecord(const QString &criteria);

private:
    // A step that left the rows at an end comes back to the row there, with a beep.
    void backIntoRows();
    void moved();

    Database m_db;
    EditableRowSet m_rows{m_db, QStringLiteral("Regulatory"), QStringLiteral("Adres")};
    Signal m_beep;
    Signal m_moveComplete;
};

#include "db/clsRegulatory.h"

clsRegulatory::clsRegulatory(const DatabaseConfig &config, Signal beep) : m_db(config), m_beep(std::move(beep))
{
    m_db.open();
    m_rows.open(SqlStatement(Query));
}

void clsRegulatory::AddNew()
{
    m_rows.AddNew();
    moved();
}

void clsRegulatory::Delete()
{
    m_rows.Delete(); // the set already stands on the row after the deleted one
    backIntoRows();
    moved();
}

void clsRegulatory::Requery()
{
    m_rows.Requery();
    moved();
}

void clsRegulatory::Update()
{
    const bool adding = m_rows.editMode() == EditableRowSet::EditAdd;
    m_rows.UpdateBatch();
    if (adding)
        MoveLast();
}

void clsRegulatory::Cancel()
{
    const bool adding = m_rows.editMode() == EditableRowSet::EditAdd;
    m_rows.CancelUpdate();
    if (adding)
        MoveFirst();
}

void clsRegulatory::MoveFirst()
{
    m_rows.MoveFirst();
    moved();
}

void clsRegulatory::MoveLast()
{
    m_rows.MoveLast();
    moved();
}

void clsRegulatory::MoveNext()
{
    if (!m_rows.EOF_())
        m_rows.MoveNext();
    backIntoRows();
    moved();
}

void clsRegulatory::MovePrevious()
{
    if (!m_rows.BOF())
        m_rows.MovePrevious();
    backIntoRows();
    moved();
}

void clsRegulatory::FindRecord(const QString &criteria)
{
    m_rows.Find(criteria);
    moved();
}

void clsRegulatory::backIntoRows()
{
    if (m_rows.rowCount() == 0)
        return;
    if (m_rows.EOF_()) {
        m_beep();
        m_rows.MoveLast();
    } else if (m_rows.BOF()) {
        m_beep();
        m_rows.MoveFirst();
    }
}

void clsRegulatory::moved()
{
    if (m_moveComplete)
        m_moveComplete();
}

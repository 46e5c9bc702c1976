#include "model/StatusPanels.h"

void StatusPanels::setText(int n, const QString &text)
{
    if (at(n).text == text)
        return;
    at(n).text = text;
    emit panelChanged(n);
}

void StatusPanels::setToolTip(int n, const QString &toolTip)
{
    if (at(n).toolTip == toolTip)
        return;
    at(n).toolTip = toolTip;
    emit panelChanged(n);
}

void StatusPanels::setPicture(int n, Picture picture)
{
    if (at(n).picture == picture)
        return;
    at(n).picture = picture;
    emit panelChanged(n);
}

void StatusPanels::setNotice(const QString &text, const QString &toolTip)
{
    if (m_notice.text == text && m_notice.toolTip == toolTip)
        return;
    m_notice.text = text;
    m_notice.toolTip = toolTip;
    emit noticeChanged();
}

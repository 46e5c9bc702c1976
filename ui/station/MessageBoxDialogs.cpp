#include "MessageBoxDialogs.h"

#include <QFileDialog>
#include <QMessageBox>

int MessageBoxDialogs::MsgBox(const QString &prompt, int style, const QString &title)
{
    QMessageBox box(m_parent);
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Zorbel") : title);
    // a carriage return breaks the line, as in the station's texts
    QString text = prompt;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    box.setText(text);
    switch (style & 0x70) {
    case Critical: box.setIcon(QMessageBox::Critical); break;
    case Question: box.setIcon(QMessageBox::Question); break;
    case Exclamation: box.setIcon(QMessageBox::Warning); break;
    case Information: box.setIcon(QMessageBox::Information); break;
    default: break;
    }
    switch (style & 0x0f) {
    case OkCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    case YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    default: box.setStandardButtons(QMessageBox::Ok); break;
    }
    switch (box.exec()) {
    case QMessageBox::Cancel: return Cancel;
    case QMessageBox::Yes: return Yes;
    case QMessageBox::No: return No;
    default: return Ok;
    }
}

QString MessageBoxDialogs::saveFileName(const QString &title, const QString &suggested, const QString &filter)
{
    return QFileDialog::getSaveFileName(m_parent, title, suggested, filter);
}

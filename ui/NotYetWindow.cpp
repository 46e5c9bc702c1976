#include "NotYetWindow.h"

#include <QCloseEvent>
#include <QLabel>
#include <QVBoxLayout>

NotYetWindow::NotYetWindow(const QString &name, const QString &caption, QWidget *parent) : QWidget(parent)
{
    setObjectName(name);
    setWindowTitle(caption);
    setAttribute(Qt::WA_DeleteOnClose);
    auto *text = new QLabel(QStringLiteral("To okno nie jest jeszcze dostępne w tej wersji programu Zorbel."), this);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    resize(320, 120);
}

void NotYetWindow::closeEvent(QCloseEvent *event)
{
    if (m_onClose)
        m_onClose();
    event->accept();
}

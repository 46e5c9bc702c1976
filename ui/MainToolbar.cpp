#include "MainToolbar.h"

#include "ImageList.h"
#include "StationImages.h"

#include "base/RunTimeError.h"

MainToolbar::MainToolbar(const ImageList &images, QWidget *parent) : QToolBar(QStringLiteral("Toolbar"), parent)
{
    setObjectName(QStringLiteral("Toolbar"));
    setMovable(false);
    setIconSize(QSize(16, 16));
    // the tool tips as designed; the window's load then rewrites some of them
    addButton(QStringLiteral("Komun"), images.image(StationImages::MainImage::Link), true, QStringLiteral("Włączanie/wyłaczanie komunikacji"));
    addSeparatorButton();
    addButton(QStringLiteral("Panel"), images.image(StationImages::MainImage::FrontPanel), true, QStringLiteral("Pokaż/ukryj panel"));
    addButton(QStringLiteral("Dane"), images.image(QStringLiteral("Dane")), true,
              QStringLiteral("Pokaż/ukryj dane z regulatora"));
    addButton(QStringLiteral("Monit"), images.image(QStringLiteral("lornetka")), true,
              QStringLiteral("Włącz/wyłącz monitoring"));
    addSeparatorButton();
    addButton(QStringLiteral("Alarm"), images.image(StationImages::MainImage::AlarmBell), false, QStringLiteral("Pokaż/ukryj alarmy"));
    addSeparatorButton();
    addButton(QStringLiteral("RapDob"), images.image(StationImages::MainImage::DailyReport), false, QStringLiteral("Raport dobowy"));
    addButton(QStringLiteral("Wykresy"), images.image(StationImages::MainImage::Chart), false, QStringLiteral("Wykres dobowy"));
    addButton(QString(), images.image(StationImages::MainImage::Wizard), false, QStringLiteral("Czarosdziej ustawien"));
    setValue(QStringLiteral("Komun"), 1); // pressed from the start
}

void MainToolbar::addButton(const QString &key, const QIcon &icon, bool check, const QString &toolTip)
{
    QAction *a = addAction(icon, QString());
    a->setObjectName(key.isEmpty() ? QStringLiteral("button%1").arg(m_buttons.size() + 1) : key);
    a->setCheckable(check);
    a->setToolTip(toolTip);
    // triggered comes from the operator only: a value set by the program is not a click
    connect(a, &QAction::triggered, this, [this, key, a] {
        if (m_clicked)
            m_clicked(key, a->isChecked());
    });
    m_buttons.push_back({key, a});
}

void MainToolbar::addSeparatorButton()
{
    m_buttons.push_back({QString(), addSeparator()});
}

QAction *MainToolbar::at(int index) const
{
    if (index < 1 || index > count())
        throw RunTimeError::subscriptOutOfRange();
    return m_buttons[std::size_t(index - 1)].action;
}

QAction *MainToolbar::button(const QString &key) const
{
    for (const Button &b : m_buttons)
        if (!key.isEmpty() && b.key == key)
            return b.action;
    throw RunTimeError::subscriptOutOfRange();
}

QString MainToolbar::key(int index) const
{
    at(index);
    return m_buttons[std::size_t(index - 1)].key;
}

int MainToolbar::value(const QString &key) const
{
    return button(key)->isChecked() ? 1 : 0;
}

void MainToolbar::setValue(const QString &key, int value)
{
    QAction *a = button(key);
    if (a->isCheckable())
        a->setChecked(value != 0);
}

void MainToolbar::setToolTip(const QString &key, const QString &text)
{
    button(key)->setToolTip(text);
}

void MainToolbar::setToolTipAt(int index, const QString &text)
{
    at(index)->setToolTip(text);
}

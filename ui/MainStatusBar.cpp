#include "MainStatusBar.h"

#include "StationImages.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

// widths in pixels; the first panel takes what is left
constexpr std::array<int, StatusPanels::Count> MinWidths{280, 110, 36, 36, 110, 80};

}

MainStatusBar::MainStatusBar(const StatusPanels &panels, ImageList images1, ImageList images2, QWidget *parent)
    : QStatusBar(parent), m_panels(panels), m_images1(std::move(images1)), m_images2(std::move(images2))
{
    setObjectName(QStringLiteral("StatusBar"));
    setSizeGripEnabled(true);
    for (int n = 1; n <= StatusPanels::Count; ++n) {
        auto *frame = new QFrame(this);
        frame->setObjectName(QStringLiteral("panel%1").arg(n));
        frame->setFrameShape(QFrame::Panel);
        frame->setFrameShadow(QFrame::Sunken);
        frame->setMinimumWidth(MinWidths[std::size_t(n - 1)]);
        auto *layout = new QHBoxLayout(frame);
        layout->setContentsMargins(3, 0, 3, 0);
        layout->setSpacing(4);
        auto *picture = new QLabel(frame);
        picture->setFixedSize(16, 16);
        auto *text = new QLabel(frame);
        layout->addWidget(picture);
        layout->addWidget(text, 1);
        addPermanentWidget(frame, n == 1 ? 1 : 0);
        m_widgets[std::size_t(n - 1)] = {frame, picture, text};
        show(n);
    }
    connect(&m_panels, &StatusPanels::panelChanged, this, [this](int n) { show(n); });
    m_notice = new QLabel(this);
    m_notice->setObjectName(QStringLiteral("notice"));
    m_notice->setStyleSheet(QStringLiteral("color: rgb(192,0,0); font-weight: bold"));
    addWidget(m_notice, 1); // left of the panels, shown only while it has something to say
    showNotice();
    connect(&m_panels, &StatusPanels::noticeChanged, this, [this] { showNotice(); });
}

void MainStatusBar::showNotice()
{
    m_notice->setText(m_panels.notice().text);
    m_notice->setToolTip(m_panels.notice().toolTip);
    m_notice->setVisible(!m_panels.notice().text.isEmpty());
}

void MainStatusBar::show(int n)
{
    const StatusPanels::Panel &p = m_panels.panel(n);
    const PanelWidgets &w = m_widgets[std::size_t(n - 1)];
    w.text->setText(p.text);
    w.frame->setToolTip(p.toolTip);
    w.picture->setPixmap(pixmapOf(p.picture));
    w.picture->setVisible(p.picture != StatusPanels::Picture::None);
}

QPixmap MainStatusBar::pixmapOf(StatusPanels::Picture picture) const
{
    switch (picture) {
    case StatusPanels::Picture::DarkLamp: return m_images1.pixmap(StationImages::MainImage::DarkLamp);
    case StatusPanels::Picture::LitLamp: return m_images1.pixmap(StationImages::MainImage::LitLamp);
    case StatusPanels::Picture::AlarmFlash: return m_images1.pixmap(QStringLiteral("blysk"));
    case StatusPanels::Picture::ControlMode: return m_images2.pixmap(1);
    case StatusPanels::Picture::None: break;
    }
    return {};
}

QString MainStatusBar::shownText(int n) const
{
    return m_widgets.at(std::size_t(n - 1)).text->text();
}

bool MainStatusBar::showsPicture(int n) const
{
    const QLabel *l = m_widgets.at(std::size_t(n - 1)).picture;
    return !l->isHidden() && !l->pixmap().isNull();
}

#include "frmSplash.h"

#include "FormControls.h"
#include "ProgramInfo.h"
#include "ZorbelLogo.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int Width = 520;

QLabel *titleLabel(QWidget *parent)
{
    QLabel *l = form::label(parent, "lblProductName", program::title());
    QFont f = l->font();
    f.setPointSizeF(f.pointSizeF() * 2.5);
    f.setBold(true);
    l->setFont(f);
    return l;
}

QLabel *noticeLabel(QWidget *parent, const char *name, const QString &text)
{
    QLabel *l = form::label(parent, name, text);
    l->setWordWrap(true);
    QFont f = l->font();
    f.setPointSizeF(f.pointSizeF() * 0.85);
    l->setFont(f);
    return l;
}

QFrame *rule(QWidget *parent)
{
    auto *line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

}

frmSplash::frmSplash(QWidget *parent)
    : QDialog(parent, Qt::SplashScreen | Qt::WindowStaysOnTopHint), Frame1(new QFrame(this)),
      lblProgress(form::label(Frame1, "lblProgress", {}))
{
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setFrameShape(QFrame::Panel);
    Frame1->setFrameShadow(QFrame::Raised);
    Frame1->setLineWidth(2);
    auto *logo = new ZorbelLogo(96, Frame1);
    logo->setObjectName(QStringLiteral("imgLogo"));
    auto *version = form::label(Frame1, "lblVersion", QStringLiteral("Wersja ") + program::version());
    auto *ok = form::button(Frame1, "Command1", QStringLiteral("&Ok"));
    lblProgress->setMinimumHeight(lblProgress->fontMetrics().height());

    auto *grid = new QGridLayout(Frame1);
    grid->setContentsMargins(18, 18, 18, 14);
    grid->setHorizontalSpacing(18);
    grid->addWidget(logo, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(titleLabel(Frame1), 0, 1, 1, 2);
    grid->addWidget(form::label(Frame1, "lblCompanyProduct", QStringLiteral("system nadzoru energii biernej")), 1, 1, 1, 2);
    grid->addWidget(version, 2, 1, 1, 2, Qt::AlignTop);
    grid->addWidget(lblProgress, 3, 0, 1, 3);
    grid->addWidget(rule(Frame1), 4, 0, 1, 3);
    grid->addWidget(noticeLabel(Frame1, "lblCopyright", program::copyrightNotice()), 5, 0, 1, 3);
    grid->addWidget(noticeLabel(Frame1, "lblWarning", program::licenceNotice()), 6, 0, 1, 2);
    grid->addWidget(ok, 6, 2, Qt::AlignBottom | Qt::AlignRight);
    grid->setColumnStretch(1, 1);

    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(Frame1);
    setFixedSize(Width, heightForWidth(Width));
    connect(ok, &QPushButton::clicked, this, &QWidget::close);
    form::previewKeys(this);
}

void frmSplash::showProgress(const QString &text)
{
    show();
    lblProgress->setText(text);
    repaint();
    QApplication::processEvents();
}

void frmSplash::closeSplash()
{
    close();
}

bool frmSplash::eventFilter(QObject *watched, QEvent *event)
{
    const bool frameClicked = watched == Frame1 && event->type() == QEvent::MouseButtonRelease;
    if (frameClicked || event->type() == QEvent::KeyPress) {
        close();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

#pragma once

#include "ImageList.h"
#include "model/StatusPanels.h"

#include <QStatusBar>
#include <array>

class QLabel;

// The main window's status bar: six panels, each a picture and a text,
// showing what the station has put into its panel model.
class MainStatusBar final : public QStatusBar {
public:
    MainStatusBar(const StatusPanels &panels, ImageList images1, ImageList images2, QWidget *parent = nullptr);

    // What panel n (from 1) shows, for the screen and for tests.
    QString shownText(int n) const;
    bool showsPicture(int n) const;

private:
    struct PanelWidgets {
        QWidget *frame;
        QLabel *picture;
        QLabel *text;
    };
    void show(int n);
    void showNotice();
    QPixmap pixmapOf(StatusPanels::Picture picture) const;

    const StatusPanels &m_panels;
    ImageList m_images1;
    ImageList m_images2;
    std::array<PanelWidgets, StatusPanels::Count> m_widgets{};
    QLabel *m_notice = nullptr;
};

#pragma once

#include <QWidget>

// The station's mark: a sine wave of the line running through a capacitor,
// on a dark blue tile. Drawn to any square size.
class ZorbelLogo final : public QWidget {
public:
    explicit ZorbelLogo(int side, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

#pragma once

#include "PictureControl.h"

#include <QVariant>

// The bitmap lamp of the front panel. Unlike the key, Picture2 is its lit
// picture and Picture1 its dark one. While Enabled a click selects it,
// which shows its border.
class ctlDioda3d final : public PictureControl {
public:
    explicit ctlDioda3d(QWidget *parent = nullptr);

    QVariant Zapalona() const { return m_zapalona; }
    // Stores and repaints, even when the value is the one it had.
    void setZapalona(const QVariant &zapalona);
    bool Selected() const { return m_selected; }
    // Ignored altogether unless Enabled.
    void setSelected(bool selected);
    QPixmap Picture() const { return shownPicture(); }

    QVariantMap WriteProperties() const override;
    void ReadProperties(const QVariantMap &bag) override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QVariant m_zapalona = 0;
    bool m_selected = false;
    bool m_pressed = false;
};

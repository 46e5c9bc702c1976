#pragma once

#include "PictureControl.h"

// The older two-picture switch of the kit: Picture1 shows it true,
// Picture2 false, and a double click toggles it whatever Enabled says.
class ctlSwitch final : public PictureControl {
public:
    explicit ctlSwitch(QWidget *parent = nullptr);

    bool Value() const { return m_value; }
    void setValue(bool value);
    // The picture shown, saved with the switch.
    QPixmap Picture() const { return shownPicture(); }

    QVariantMap WriteProperties() const override;
    void ReadProperties(const QVariantMap &bag) override;

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    bool m_value = true;
};

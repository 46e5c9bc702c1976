#pragma once

#include "PictureControl.h"

// The rocker key of the front panel. Picture1 shows it true, Picture2
// false. A double click toggles it only while Enabled and leaves it
// Zmieniony: changed by the operator since the owner last set Value.
class ctlPrzel final : public PictureControl {
public:
    explicit ctlPrzel(QWidget *parent = nullptr);

    bool Value() const { return m_value; }
    // The owner's assignment: it always ends with Zmieniony false.
    void setValue(bool value);
    bool Zmieniony() const { return m_zmieniony; }
    void setZmieniony(bool zmieniony);

    QVariantMap WriteProperties() const override;
    void ReadProperties(const QVariantMap &bag) override;

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    bool m_value = true;
    bool m_zmieniony = false;
};

#pragma once

// What the event hub asks of the front panel window while it is loaded.
class PanelView {
public:
    virtual ~PanelView() = default;
    // Redraws the panel from the current controller.
    virtual void OdswiezPanel() = 0;
    // The button that sends the keys is there only in control mode.
    virtual void setUstawVisible(bool visible) = 0;
    // The controller is now blocked: the unblock caption and the buttons usable;
    // the keys follow at the next redraw.
    virtual void showBlocked() = 0;
};

// What the event hub asks of the measurement data window while it is loaded.
class DataView {
public:
    virtual ~DataView() = default;
    virtual void Odswiez() = 0;
    virtual void setOdswiezEnabled(bool enabled) = 0;
};

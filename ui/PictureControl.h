#pragma once

#include <QPixmap>
#include <QVariantMap>
#include <QWidget>
#include <cstdint>

// The frame of properties shared by the picture widgets of the front panel
// (the rocker key, the lamp, the switch). Each set stores the value and
// marks the widget as changed for saving, and does nothing more; the
// widget shows one picture at its upper left corner and raises no events:
// its owner learns of an operator's action by reading its state.
//
// Enabled is the widget's own flag, false until set: the mouse is refused
// by each widget as its rule says, not by Qt, so QWidget's own enabling is
// left alone.
class PictureControl : public QWidget {
public:
    explicit PictureControl(QWidget *parent = nullptr);

    std::uint32_t BackColor() const { return m_backColor; }
    void setBackColor(std::uint32_t colour);
    std::uint32_t ForeColor() const { return m_foreColor; }
    void setForeColor(std::uint32_t colour);
    bool Enabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    QFont Font() const { return font(); }
    void setFont(const QFont &font);
    // 0 transparent, 1 filled with BackColor.
    std::int16_t BackStyle() const { return m_backStyle; }
    void setBackStyle(std::int16_t style);
    // 0 none, 1 a single black line round the widget.
    std::int16_t BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(std::int16_t style);
    QPixmap Picture1() const { return m_picture1; }
    void setPicture1(const QPixmap &picture);
    QPixmap Picture2() const { return m_picture2; }
    void setPicture2(const QPixmap &picture);

    // The picture shown now; an empty one leaves the widget blank.
    QPixmap shownPicture() const { return m_shown; }
    void Refresh() { update(); }

    // Whether a property has been set since the widget was placed or read.
    bool propertiesChanged() const { return m_changed; }

    // The saved properties by name, only those that differ from their
    // defaults (the font always goes, like the pictures the panel gives).
    virtual QVariantMap WriteProperties() const;
    // Reads the saved properties back; what the bag lacks takes its default.
    virtual void ReadProperties(const QVariantMap &bag);

protected:
    void PropertyChanged() { m_changed = true; }
    void showPicture(const QPixmap &picture);
    void paintEvent(QPaintEvent *event) override;

private:
    std::uint32_t m_backColor = 0;
    std::uint32_t m_foreColor = 0;
    bool m_enabled = false;
    std::int16_t m_backStyle = 0;
    std::int16_t m_borderStyle = 0;
    QPixmap m_picture1;
    QPixmap m_picture2;
    QPixmap m_shown;
    bool m_changed = false;
};

// Puts `value` into the bag under `name` unless it equals the default.
template <typename T>
void storeUnlessDefault(QVariantMap &bag, const char *name, const T &value, const T &byDefault)
{
    if (!(value == byDefault))
        bag.insert(QString::fromLatin1(name), QVariant::fromValue(value));
}

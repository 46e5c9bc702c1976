#pragma once

#include <QVariantMap>
#include <QWidget>
#include <cstdint>

// The plain round lamp of the kit: one filled circle, Dioda, painted in
// ZapalKolor when lit and ZgasKolor when dark. Light grey until its first
// real change of state.
class ctlDioda final : public QWidget {
public:
    static constexpr std::uint32_t DesignFill = 14737632;
    static constexpr std::uint32_t WindowText = 2147483666u;

    explicit ctlDioda(QWidget *parent = nullptr);

    std::uint32_t ZapalKolor() const { return m_zapalKolor; }
    void setZapalKolor(std::uint32_t colour);
    std::uint32_t ZgasKolor() const { return m_zgasKolor; }
    void setZgasKolor(std::uint32_t colour);
    bool Stan() const { return m_stan; }
    // Repaints the circle only when the state changes.
    void setStan(bool stan);
    std::uint32_t ForeColor() const { return m_foreColor; }
    void setForeColor(std::uint32_t colour);
    // Read only: those of the area underneath.
    std::int16_t BackStyle() const { return autoFillBackground() ? 1 : 0; }
    QColor BackColor() const;

    // The fill of the circle now.
    std::uint32_t fill() const { return m_fill; }
    bool propertiesChanged() const { return m_changed; }

    QVariantMap WriteProperties() const;
    // Stores Stan without painting it.
    void ReadProperties(const QVariantMap &bag);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::uint32_t m_zapalKolor = 0;
    std::uint32_t m_zgasKolor = 0;
    bool m_stan = false;
    std::uint32_t m_foreColor = WindowText;
    std::uint32_t m_fill = DesignFill;
    bool m_changed = false;
};

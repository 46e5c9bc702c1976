#pragma once

#include "base/ZDate.h"

#include <QString>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

struct ControllerContext;

// The rows of the alarm window: every alarm raised since the start, and the
// only memory of which are active. A row is its record (what the logic
// reads) and the display rendered from it: sub-items 1 to 8 are Kod, full
// text, Id and kind in number form, the caller's detail, activity ("A"/"N"),
// confirmation ("N"/"T") and the key of its table row.
class ActiveAlarmList {
public:
    struct Row {
        // the record
        std::int16_t id = 0;
        std::int16_t kind = 0;
        bool active = true;
        bool confirmed = false;
        std::optional<std::int32_t> key; // none until the table row is written
        bool isActive(std::int16_t Id, std::int16_t Typ) const { return active && id == Id && kind == Typ; }

        // the display
        QString text;                       // the time, "dd/MM/yyyy hh:mm:ss"
        std::array<QString, 9> subItems{};  // 1..8; [0] unused
        int icon = 0;                       // 1 no link, 2 a limit, 0 none
        bool bold = true;
        bool red = true;
        bool ghosted = false;
    };

    explicit ActiveAlarmList(ControllerContext &context) : m_context(context) {}

    // Adds a row for an alarm of controller Id unless one of that kind is
    // already active, stores it and counts it.
    void NowyAlarm(ZDate Data, std::int16_t Id, std::int16_t Typ, const QString &text);
    // The operator's confirmation of row `index` (from 1); once per row.
    void Potwierdz(int index);
    // Marks row `index` (from 1) no longer active.
    void DezaktywujAlarm(int index);

    int rowCount() const { return int(m_rows.size()); }
    // A row index out of the list is the run-time's subscript error.
    const Row &row(int index) const;
    const QString &subItem(int index, int n) const { return row(index).subItems.at(std::size_t(n)); }

    // How the controllers' tree shows an alarm: true in the alarm colour,
    // false back to normal. The window sets it.
    void setNodePainter(std::function<void(const QString &kod, bool alarm)> painter) { m_paint = std::move(painter); }
    // Called after each change of the rows, for the window to redraw.
    void setChangeListener(std::function<void()> listener) { m_changed = std::move(listener); }

private:
    Row &at(int index) { return const_cast<Row &>(row(index)); }
    bool hasActive(std::int16_t Id, std::int16_t Typ) const;
    // Brings the display of a row in line with its record.
    static void render(Row &r);
    void paintNode(const QString &kod, bool alarm) const;
    void changed() const;

    ControllerContext &m_context;
    std::vector<Row> m_rows;
    std::function<void(const QString &, bool)> m_paint;
    std::function<void()> m_changed;
};

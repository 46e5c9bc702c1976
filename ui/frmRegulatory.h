#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

class QComboBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QKeyEvent;
class QLineEdit;
class RecordBinding;
class Station;
class clsRegulatory;

// The controller editor: one row of table Regulatory in boxes, a new one or
// one found by its address, saved when the operator asks. It works on its
// own connection; the running controllers take a saved row at the next
// start, as the window says. Home, End, the arrows and the Page keys (with
// Ctrl to an end) step through the rows; what was typed stays with its row
// until the save, and closing without saving drops it.
class frmRegulatory final : public QWidget {
    Q_OBJECT

public:
    using Beep = std::function<void()>;
    // One box: its index among the form's boxes, its column and captions.
    struct Field {
        int index;
        const char *column;
        const char *caption;
        const char *unit;
    };

    // Opens the rows on a connection of its own: a failure is a run-time
    // error and there is no window. Without a beep the desktop's own sound.
    explicit frmRegulatory(Station &station, Beep beep = {}, QWidget *parent = nullptr);
    ~frmRegulatory() override;

    bool unloaded() const { return m_unloaded; }

    // Searches forward from the current row for the address.
    void EdytujRekord(std::int16_t adres);
    void NowyRekord();

    QLineEdit *txtFields(int index) const { return m_fields.at(index); }
    QComboBox *combo(int index) const { return m_combos.at(std::size_t(index)); }
    // The rows behind the boxes.
    clsRegulatory &rows() const { return *m_rows; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QGroupBox *identityGroup();
    QGroupBox *fieldGroup(const char *caption, const Field *fields, int count);
    QGroupBox *thresholdGroup();
    QGroupBox *stageGroup();
    QGroupBox *filterGroup();
    QHBoxLayout *buttons();
    void addRows(QGridLayout *grid, const Field *fields, int count);
    QLineEdit *field(int index, const QString &column);
    QComboBox *list(int index, const QString &column, const QStringList &items);

    // Hands the row what was typed, then moves.
    void move(const std::function<void()> &step);
    bool onKey(const QKeyEvent &key);
    void save();
    // Hands the boxes to the rows and writes them; a refusal is told as it is.
    bool store();
    void unload();

    Station &m_station;
    Beep m_beep;
    std::unique_ptr<clsRegulatory> m_rows;
    std::unique_ptr<RecordBinding> m_binding;
    std::map<int, QLineEdit *> m_fields;
    std::array<QComboBox *, 2> m_combos{};
    bool m_unloaded = false;
};

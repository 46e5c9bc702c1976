#include "frmRegulatory.h"

#include "FormControls.h"
#include "RecordBinding.h"

#include "base/AlarmLog.h"
#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "db/ColumnText.h"
#include "db/clsRegulatory.h"
#include "station/Station.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Field = frmRegulatory::Field;

const Field Characteristic[] = {
    {21, "PrzekladniaNap", "Przekładnia napięciowa:", nullptr},
    {20, "Przekladnia", "Przekładnia:", nullptr},
    {13, "NapieciePomiar", "Napięcie pomiarowe:", "V"},
};
const Field Communication[] = {
    {11, "CzestOdczytu", "Częstość odczytu:", "min."},
    {10, "CzestOdczytu", "Częstość zapisu:", "min."},
    {22, "awarCzest", "Awar. częstość prób:", "min."},
};
const Field Thresholds[] = {
    {16, "ProgNapiecie", "Napięcie:", "V"},
    {17, "ProgPrad", "Prąd:", "A"},
};

// A quantity of the filter group and the boxes of its two bounds.
struct Box {
    int index;
    const char *column;
};
struct Bounds {
    const char *caption;
    Box min;
    Box max;
};
const Bounds Filters[] = {
    {"Energia czynna", {30, "EnCzynnaMin"}, {23, "EnCzynnaMax"}},
    {"Energia bierna całkowita", {24, "EnBiernaCalkMin"}, {25, "EnBiernaCalkMax"}},
    {"Energia bierna pojemnościowa", {26, "EnBiernaPojMin"}, {27, "EnBiernaPojMax"}},
    {"Napięcie", {28, "NapiecieMin"}, {29, "NapiecieMax"}},
    {"Prąd czynny", {39, "PradCzynnyMin"}, {40, "PradCzynnyMax"}},
    {"Prąd bierny", {33, "PradBiernyMin"}, {34, "PradBiernyMax"}},
    {"Prąd całkowity", {35, "PradCalkMin"}, {36, "PradCalkMax"}},
    {"Czestotliwość", {37, "CzestotliwoscMin"}, {38, "CzestotliwoscMax"}}, // kept: spelt so on the form
};
constexpr int FilterRowsPerColumn = 4;

// "Częstość zapisu:" shows the reading period, which is also the period of writing.
constexpr int WritePeriodBox = 10;
constexpr int KodBox = 12;

QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}

QGroupBox *group(const char *caption)
{
    auto *g = new QGroupBox(utf8(caption));
    auto *grid = new QGridLayout(g);
    grid->setAlignment(Qt::AlignTop); // groups side by side keep their rows at the top
    return g;
}

QGridLayout *gridOf(QGroupBox *g)
{
    return static_cast<QGridLayout *>(g->layout());
}

}

frmRegulatory::frmRegulatory(Station &station, Beep beep, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_station(station), m_beep(beep ? std::move(beep) : Beep(&QApplication::beep)),
      m_rows(std::make_unique<clsRegulatory>(station.connection().config(), m_beep)),
      m_binding(std::make_unique<RecordBinding>(m_rows->Primary()))
{
    setObjectName(QStringLiteral("frmRegulatory"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Regulator"));
    auto *page = new QVBoxLayout(this);
    page->addWidget(identityGroup());
    auto *middle = new QHBoxLayout;
    middle->addWidget(fieldGroup("Charakterystyka", Characteristic, int(std::size(Characteristic))));
    middle->addWidget(fieldGroup("Parametry komunikacji", Communication, int(std::size(Communication))));
    middle->addWidget(thresholdGroup());
    page->addLayout(middle);
    page->addWidget(stageGroup());
    page->addWidget(filterGroup());
    page->addLayout(buttons());
    m_rows->setMoveComplete([this] { m_binding->fill(); });
    m_binding->fill();
    form::previewKeys(this);
    resize(sizeHint()); // adjustSize() would hold a window to two thirds of the screen
}

frmRegulatory::~frmRegulatory() = default;

QGroupBox *frmRegulatory::identityGroup()
{
    QGroupBox *g = group("Typ:"); // kept: the identity frame bears the caption "Typ:"
    QGridLayout *grid = gridOf(g);
    const std::pair<const char *, QWidget *> cells[] = {
        {"Adres regulatora:", field(0, QStringLiteral("Adres"))},
        {"Kod regulatora:", field(KodBox, QStringLiteral("Kod"))},
        {"Nr fabryczny:", field(14, QStringLiteral("NrFabryczny"))},
        {"Typ:", list(0, QStringLiteral("Typ"), {QStringLiteral("regulator")})},
        // kept: a chosen "tak" is stored in lower case, which the start does not count as "Tak"
        {"Podłączony:", list(1, QStringLiteral("aktywny"), {QStringLiteral("tak"), QStringLiteral("nie")})},
    };
    for (int i = 0; i < int(std::size(cells)); ++i) {
        grid->addWidget(new QLabel(utf8(cells[i].first)), i / 3, 2 * (i % 3));
        grid->addWidget(cells[i].second, i / 3, 2 * (i % 3) + 1);
    }
    grid->addWidget(new QLabel(QStringLiteral("Opis:")), 2, 0);
    grid->addWidget(field(15, QStringLiteral("Opis")), 2, 1, 1, 5);
    return g;
}

QGroupBox *frmRegulatory::fieldGroup(const char *caption, const Field *fields, int count)
{
    QGroupBox *g = group(caption);
    addRows(gridOf(g), fields, count);
    return g;
}

QGroupBox *frmRegulatory::thresholdGroup()
{
    QGroupBox *g = fieldGroup("Progi alarmowe", Thresholds, int(std::size(Thresholds)));
    auto *tgFi = new QHBoxLayout;
    tgFi->addWidget(field(19, QStringLiteral("ProgTgFiMin"))); // the lower bound on the left
    tgFi->addWidget(field(18, QStringLiteral("ProgTgFi")));
    QGridLayout *grid = gridOf(g);
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(QStringLiteral("Tg fi:")), row, 0);
    grid->addLayout(tgFi, row, 1, 1, 2);
    return g;
}

QGroupBox *frmRegulatory::stageGroup()
{
    QGroupBox *g = group("Moc baterii kondensatorów");
    for (int stage = 1; stage <= 9; ++stage) {
        gridOf(g)->addWidget(new QLabel(QString::number(stage)), 0, 2 * stage - 2, Qt::AlignRight);
        gridOf(g)->addWidget(field(stage, QStringLiteral("BKSt%1").arg(stage)), 0, 2 * stage - 1);
    }
    return g;
}

QGroupBox *frmRegulatory::filterGroup()
{
    QGroupBox *g = group("Filtrowanie danych");
    QGridLayout *grid = gridOf(g);
    for (int i = 0; i < int(std::size(Filters)); ++i) {
        const int column = 4 * (i / FilterRowsPerColumn); // two halves side by side
        const int row = i % FilterRowsPerColumn + 1;
        if (row == 1) {
            grid->addWidget(new QLabel(QStringLiteral("min.")), 0, column + 1, Qt::AlignHCenter);
            grid->addWidget(new QLabel(QStringLiteral("maks.")), 0, column + 2, Qt::AlignHCenter);
        }
        grid->addWidget(new QLabel(utf8(Filters[i].caption)), row, column);
        grid->addWidget(field(Filters[i].min.index, QString::fromLatin1(Filters[i].min.column)), row, column + 1);
        grid->addWidget(field(Filters[i].max.index, QString::fromLatin1(Filters[i].max.column)), row, column + 2);
    }
    grid->setColumnMinimumWidth(3, 16);
    return g;
}

QHBoxLayout *frmRegulatory::buttons()
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    QPushButton *save = form::button(this, "Command1", QStringLiteral("&Zapisz"));
    QPushButton *close = form::button(this, "Command2", QStringLiteral("Zamknij"));
    connect(save, &QPushButton::clicked, this, [this] { form::guarded(m_station.services.dialogs, [this] { this->save(); }); });
    connect(close, &QPushButton::clicked, this, [this] { unload(); });
    row->addWidget(save);
    row->addWidget(close);
    return row;
}

void frmRegulatory::addRows(QGridLayout *grid, const Field *fields, int count)
{
    for (int i = 0; i < count; ++i) {
        const Field &f = fields[i];
        grid->addWidget(new QLabel(utf8(f.caption)), i, 0);
        grid->addWidget(field(f.index, QString::fromLatin1(f.column)), i, 1);
        if (f.unit)
            grid->addWidget(new QLabel(utf8(f.unit)), i, 2);
    }
}

QLineEdit *frmRegulatory::field(int index, const QString &column)
{
    auto *box = new QLineEdit(this);
    box->setObjectName(QStringLiteral("txtFields_%1").arg(index));
    box->setReadOnly(index == WritePeriodBox);
    if (ColumnText::describe(QStringLiteral("Regulatory"), column).type != SqlDialect::ColumnType::Text)
        box->setMaximumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("00000000")) + 12);
    m_fields[index] = box;
    m_binding->bind(box, column);
    return box;
}

QComboBox *frmRegulatory::list(int index, const QString &column, const QStringList &items)
{
    auto *list = new QComboBox(this);
    list->setObjectName(QStringLiteral("combo_%1").arg(index));
    list->addItems(items);
    m_combos.at(std::size_t(index)) = list;
    m_binding->bind(list, column);
    return list;
}

void frmRegulatory::EdytujRekord(std::int16_t adres)
{
    move([&] { m_rows->FindRecord(QStringLiteral("adres = ") + QString::number(adres)); });
}

void frmRegulatory::NowyRekord()
{
    move([&] { m_rows->AddNew(); });
}

void frmRegulatory::move(const std::function<void()> &step)
{
    m_binding->collect(); // what was typed stays with its row until the save
    step();
}

bool frmRegulatory::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && onKey(*static_cast<QKeyEvent *>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool frmRegulatory::onKey(const QKeyEvent &key)
{
    const bool ctrl = (key.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    void (clsRegulatory::*step)() = nullptr;
    switch (key.key()) {
    case Qt::Key_Escape: unload(); return true;
    case Qt::Key_End: step = &clsRegulatory::MoveLast; break;
    case Qt::Key_Home: step = &clsRegulatory::MoveFirst; break;
    case Qt::Key_Up:
    case Qt::Key_PageUp: step = ctrl ? &clsRegulatory::MoveFirst : &clsRegulatory::MovePrevious; break;
    case Qt::Key_Down:
    case Qt::Key_PageDown: step = ctrl ? &clsRegulatory::MoveLast : &clsRegulatory::MoveNext; break;
    default: return false;
    }
    form::guarded(m_station.services.dialogs, [&] { move([&] { (m_rows.get()->*step)(); }); });
    return true;
}

void frmRegulatory::save()
{
    QLineEdit *kod = txtFields(KodBox);
    if (kod->text().isEmpty()) { // blanks pass: only emptiness is tested
        m_station.services.dialogs.MsgBox(QStringLiteral("Proszę wypełnić pole Kod regulatora!"), Dialogs::Critical,
                                          QStringLiteral("Niepełne dane."));
        kod->setFocus();
        return;
    }
    const QString code = kod->text();
    if (!store())
        return;
    m_station.services.dialogs.MsgBox(
        QStringLiteral("Nowe ustawienia zostaną uwzględnione po ponownym uruchomieniu programu Zorbel."),
        Dialogs::Information, QStringLiteral("Uwaga"));
    // kept: Status "B" (a failed event) for a save that succeeded
    m_station.oBD.ZapiszDoLoga(QStringLiteral("Zapisano nowe dane o regulatorze"), LogStatus::Failed, LogType::Block,
                               code);
    unload();
}

bool frmRegulatory::store()
{
    try {
        m_binding->collect();
        m_rows->Update();
        return true;
    } catch (const RunTimeError &e) {
        m_station.services.dialogs.MsgBox(e.description(), Dialogs::OkOnly);
        return false;
    }
}

void frmRegulatory::closeEvent(QCloseEvent *event)
{
    m_unloaded = true;
    event->accept();
}

void frmRegulatory::unload()
{
    form::unload(this);
}

// The operator's commands that the main window's menu hands to the station.
#include "station/Station.h"

#include "base/Dialogs.h"
#include "base/NumberForm.h"
#include "station/clsPozKolejki.h"

namespace {

clRegulator &selected(Station &s)
{
    return s.Regulatory.Item(s.oApp.NrAktRegulatora);
}

}

void Station::setMonitoring(bool on)
{
    clRegulator &r = selected(*this);
    r.Monitoring = on;
    oBD.ZapiszDoLoga(on ? QStringLiteral("Włączono monitoring") : QStringLiteral("Wyłączono monitoring"),
                     LogStatus::Done, LogType::Monitoring, r.Kod);
}

void Station::switchSelectedStage()
{
    clRegulator &r = selected(*this);
    if (r.NrAktBaterii == 0) {
        services.dialogs.MsgBox(QStringLiteral("Proszę najpierw zaznaczyć stopień!"),
                                Dialogs::Exclamation | Dialogs::OkOnly, QStringLiteral("Zorbel"));
        return;
    }
    const auto nr = std::uint8_t(r.NrAktBaterii - 1);
    // always the opposite of what the lamp shows now
    const StageSwitch change{nr, !r.SprawdzStanDiody(nr)};
    Kolejka.Add(oApp.NrAktRegulatora, QueueOp::SetStage, QVariant::fromValue(change), 0, QString());
}

void Station::deleteSelectedController()
{
    Dialogs &dialogs = services.dialogs;
    if (dialogs.MsgBox(QStringLiteral("Czy napewno usunąć wybrany regulator z systemu Zorbel?"),
                       Dialogs::OkCancel | Dialogs::Question, QStringLiteral("UWAGA"))
        != Dialogs::Ok)
        return;
    const clRegulator &r = selected(*this);
    RowSet &rows = *rsRegulatory;
    rows.MoveFirst();
    rows.Find(QStringLiteral("Adres=") + numberForm(r.adres));
    rows.Delete();
    // the controller goes on being polled until the next start
    dialogs.MsgBox(QStringLiteral("Nowe ustawienia zostaną uwzględnione po ponownym uruchomieniu programu Zorbel."),
                   Dialogs::Information, QStringLiteral("Uwaga"));
}

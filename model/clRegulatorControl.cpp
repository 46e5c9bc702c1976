// The operator's reach into a controller: blocking its regulation, its
// panel keys, and one capacitor stage under the discharge rule.
#include "model/clRegulator.h"

#include "base/Dialogs.h"
#include "base/NumberForm.h"
#include "model/ControllerContext.h"
#include "base/AlarmLog.h"
#include "model/PanelKeys.h"
#include "link/ReplyBuffer.h"
#include "base/clsWizual.h"

bool clRegulator::BlokujRegul(bool Zablokuj)
{
    ControllerContext &s = ctx();
    s.oWizual.eBlokowanieRegul(Id, Zablokuj, true);
    std::uint8_t Bajt = 0;
    if (command("Czytaj_blok", Bajt)) {
        Zablokowany = KodBlokady(Bajt);
        std::uint8_t Nowy = 0;
        if (!Zablokuj && Zablokowany)
            Nowy = Bajt & 223;
        else if (Zablokuj && !Zablokowany)
            Nowy = Bajt | 32;
        // also sent when already so, then with 0: a repeated block unblocks
        if (command("Ustaw_blok", Bajt, Nowy)) {
            Zablokowany = KodBlokady(Bajt);
            s.oBD.ZapiszDoLoga(QStringLiteral("Blokada regulatora"), LogStatus::Done, LogType::Block, Kod);
        } else {
            s.oBD.ZapiszDoLoga(QStringLiteral("Nieudana próba zablokowania regulatora"), LogStatus::Failed,
                               LogType::Block, Kod);
        }
    }
    s.oWizual.eBlokadaRegul(Id, Zablokowany, true);
    s.oWizual.eBlokowanieRegul(Id, Zablokuj, false);
    return Zablokowany == Zablokuj;
}

bool clRegulator::UstawRegulator()
{
    ControllerContext &s = ctx();
    std::uint8_t keys = 0;
    for (int i = PanelKeys::First; i <= PanelKeys::Last; ++i)
        if (s.panelKeys.value(i))
            keys |= s.bitMasks[std::size_t(i - PanelKeys::First)];
    QVariant unused;
    const bool sent = command("Ustaw_sr", unused, keys);
    if (sent) {
        WczytajStanRegul(s.now());
        s.oBD.ZapiszDoLoga(QStringLiteral("Ustawienie regulatora"), LogStatus::Done, LogType::Setting, Kod);
    } else {
        s.oBD.ZapiszDoLoga(QStringLiteral("Nieudana próba ustawienia regulatora"), LogStatus::Failed,
                           LogType::Setting, Kod);
    }
    s.panelKeys.releaseAll();
    return sent;
}

bool clRegulator::readStageBytes(std::uint8_t &K1, std::uint8_t &K2)
{
    // both are asked for, whatever the first gives
    const bool first = command("Czytaj_Kond1", K1);
    const bool second = command("Czytaj_Kond2", K2);
    return first && second;
}

bool clRegulator::UstawKondensator(std::uint8_t Nr, bool Zalacz)
{
    ControllerContext &s = ctx();
    auto hook = [&](bool stan) {
        if (Zalacz)
            s.oWizual.eZalaczanieBaterii(Id, stan);
        else
            s.oWizual.eWylaczanieBaterii(Id, stan);
    };
    hook(true);
    std::uint8_t K1 = 0, K2 = 0;
    if (readStageBytes(K1, K2)) {
        clsStan.StanDiod1 = K1;
        clsStan.StanDiod2 = K2;
        const bool Stan = SprawdzStanDiody(Nr);
        if (Stan == Zalacz) {
            s.oWizual.eNoweDane(Id, QStringLiteral("O"));
            hook(false);
            return true;
        }
        if (Stan) {
            // off: set the stage's bit and start its 60-second discharge timer
            if (Nr == 8)
                K2 |= s.bitMasks[7];
            else
                K1 |= s.bitMasks[Nr];
            QVariant unused;
            command("Ustaw_kond", unused, Nr);
        } else {
            std::uint8_t Pozostalo = 0;
            if (command("Badaj_kond", Pozostalo, Nr)) {
                if (Pozostalo != 0) {
                    s.dialogs.MsgBox(QStringLiteral("Nie można załączyć kondensatora nr ") +
                                                  QString::number(Nr + 1) + QStringLiteral(".\r") +
                                                  QStringLiteral("Nie upłynął jeszcze czas jego rozładowania.\r") +
                                                  QStringLiteral("Pozostało ") + numberForm(Pozostalo) +
                                                  QStringLiteral(" sekund."),
                                              Dialogs::Critical);
                    s.oWizual.eZalaczanieBaterii(Id, false);
                    return false;
                }
                // stage 8 keeps bits 4 to 6, clears bit 7 and sets bits 0 to 3
                if (Nr == 8)
                    K2 = (K2 & 112) | 15;
                else
                    K1 &= std::uint8_t(~s.bitMasks[Nr]);
            }
        }
    }
    QVariant unused;
    if (Nr == 8)
        command("Wlacz_kond2", unused, K2);
    else
        command("Wlacz_kond", unused, K1);
    if (readStageBytes(K1, K2)) {
        clsStan.StanDiod1 = K1;
        clsStan.StanDiod2 = K2;
        s.oWizual.eNoweDane(Id, QStringLiteral("O"));
    }
    const QString stage = numberForm(Nr + 1);
    s.oBD.ZapiszDoLoga((Zalacz ? QStringLiteral("Załączono stopień nr ") : QStringLiteral("Wyłączono stopień nr ")) +
                           stage,
                       LogStatus::Done, LogType::Stage, Kod);
    hook(false);
    return true;
}

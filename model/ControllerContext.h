#pragma once

#include "base/BitMasks.h"
#include "base/Clock.h"

class ActiveAlarmList;
class AlarmLog;
class Dialogs;
class Komunikator;
class PanelKeys;
class SampleArchive;
class clsWizual;
class clsoApp;
class colRegulatory;

// What a controller reaches beyond itself: the line, the screen's event hub,
// the stores, the alarm list and the station's state. The station fills it
// once; everything lives as long as the station.
struct ControllerContext {
    Komunikator &oKomunikator;
    clsWizual &oWizual;
    const Clock &clock;
    Dialogs &dialogs;
    const BitMasks &bitMasks;
    AlarmLog &oBD;
    SampleArchive &samples;
    clsoApp &oApp;
    colRegulatory &Regulatory;
    ActiveAlarmList &fmAlarmyN;
    PanelKeys &panelKeys;

    ZDate now() const { return clock.now(); }
    ZDate standardNow() const { return clock.standardNow(); }
};

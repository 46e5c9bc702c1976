#include "simcore/PanelKeys.h"

namespace sim {

quint8 PanelKeys::press(quint8 keys)
{
    m_held = keys & (kManual | kTest);
    return keys & (kPlus | kMinus);
}

} // namespace sim

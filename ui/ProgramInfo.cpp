#include "ProgramInfo.h"

#include <QCoreApplication>
#include <QVersionNumber>

namespace program {

QString title()
{
    return QStringLiteral("Zorbel");
}

QString version()
{
    QVersionNumber v = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    if (v.isNull())
        v = QVersionNumber::fromString(QStringLiteral(ZORBEL_VERSION));
    return QStringLiteral("%1.%2.%3").arg(v.majorVersion()).arg(v.minorVersion()).arg(v.microVersion());
}

QString copyrightNotice()
{
    return QStringLiteral("© Twórcy programu Zorbel. Wszelkie prawa zastrzeżone.");
}

QString licenceNotice()
{
    return QStringLiteral("Program jest chroniony prawem autorskim. Wolno go używać, kopiować "
                          "i zmieniać wyłącznie na warunkach licencji dołączonej do programu.");
}

}

#include "WavePlayer.h"

#include <QDir>
#include <QFileInfo>
#include <QSoundEffect>
#include <QUrl>

WavePlayer::WavePlayer() = default;
WavePlayer::~WavePlayer() = default;

bool WavePlayer::play(const QString &fileName)
{
    const QFileInfo file(QDir::current(), fileName);
    if (fileName.isEmpty() || !file.isFile())
        return false;
    const QString path = file.absoluteFilePath();
    auto &effect = m_effects[path];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(path));
    }
    effect->stop();
    effect->play();
    return true;
}

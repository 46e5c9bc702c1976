#include "WavePlayer.h"

#include <QDir>
#include <QFileInfo>
#include <QSoundEffect>
#include <QUrl>

WavePlayer::WavePlayer(const QString &installed) : m_installed(installed) {}
WavePlayer::~WavePlayer() = default;

bool WavePlayer::play(const QString &fileName)
{
    const QString path = located(fileName);
    if (path.isEmpty())
        return false;
    auto &effect = m_effects[path];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(path));
    }
    effect->stop();
    effect->play();
    return true;
}

QString WavePlayer::located(const QString &fileName) const
{
    if (fileName.isEmpty())
        return {};
    // QDir of an empty path is the current one again: no harm
    for (const QDir &dir : {QDir::current(), QDir(m_installed)}) {
        const QFileInfo file(dir, fileName);
        if (file.isFile())
            return file.absoluteFilePath();
    }
    return {};
}

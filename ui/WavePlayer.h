#pragma once

#include <QString>
#include <map>
#include <memory>

class QSoundEffect;

// Plays the station's wave files ("alarm.wav", "zablokregul.wav",
// "odblokregul.wav"), the work of GrajDzwiek. A name is resolved in the
// current directory at each call, and where it is not there in the
// directory of the installed sounds. A file that is in neither is passed over
// in silence: no sound, no message, a false result. Otherwise the file is
// played through in the background and the result is true; whether a sound
// device took it is not looked at, so without one nothing is heard and
// nothing fails. One sound effect per file is kept and used again; a file
// asked for while it still plays starts again from its beginning. The
// samples are read once per file: a file changed later keeps its old sound.
// Like every QObject it holds, it must not outlive the application object.
class WavePlayer {
public:
    // `installed`: where an installed station's sounds lie; none when empty.
    explicit WavePlayer(const QString &installed = QString());
    ~WavePlayer();
    WavePlayer(const WavePlayer &) = delete;
    WavePlayer &operator=(const WavePlayer &) = delete;

    bool play(const QString &fileName);

private:
    QString located(const QString &fileName) const;

    QString m_installed;
    std::map<QString, std::unique_ptr<QSoundEffect>> m_effects; // by absolute path
};

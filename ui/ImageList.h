#pragma once

#include <QIcon>
#include <QList>
#include <QPixmap>
#include <QString>

// A list of small pictures, as the common controls' ImageList holds them:
// entries numbered from 1, each with a key (which may be empty) and a
// picture. Keys compare without regard to case, as the keys of the
// run-time's collections do. A position out of range or a key that no
// entry has is a run-time error 9 (subscript out of range) to the caller.
class ImageList {
public:
    // Appends an entry and returns its position. A non-empty key already
    // taken is a run-time error 457 (duplicate key).
    int add(const QString &key, const QPixmap &pixmap);

    int count() const { return int(m_entries.size()); }
    QString key(int index) const;
    // The position of the entry with this key; an unknown or empty key throws.
    int indexOf(const QString &key) const;

    QPixmap pixmap(int index) const;
    QPixmap pixmap(const QString &key) const;
    QIcon image(int index) const { return QIcon(pixmap(index)); }
    QIcon image(const QString &key) const { return QIcon(pixmap(key)); }

private:
    struct Entry {
        QString key;
        QPixmap pixmap;
    };
    const Entry &at(int index) const;

    QList<Entry> m_entries;
};

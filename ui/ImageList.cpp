#include "ImageList.h"

#include "base/RunTimeError.h"

namespace {

bool sameKey(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

}

int ImageList::add(const QString &key, const QPixmap &pixmap)
{
    if (!key.isEmpty()) {
        for (const Entry &e : m_entries)
            if (sameKey(e.key, key))
                throw RunTimeError::duplicateKey();
    }
    m_entries.append({key, pixmap});
    return count();
}

const ImageList::Entry &ImageList::at(int index) const
{
    if (index < 1 || index > count())
        throw RunTimeError::subscriptOutOfRange();
    return m_entries[index - 1];
}

QString ImageList::key(int index) const
{
    return at(index).key;
}

int ImageList::indexOf(const QString &key) const
{
    if (!key.isEmpty()) {
        for (int i = 0; i < count(); ++i)
            if (sameKey(m_entries[i].key, key))
                return i + 1;
    }
    throw RunTimeError::subscriptOutOfRange();
}

QPixmap ImageList::pixmap(int index) const
{
    return at(index).pixmap;
}

QPixmap ImageList::pixmap(const QString &key) const
{
    return at(indexOf(key)).pixmap;
}

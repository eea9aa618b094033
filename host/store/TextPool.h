#pragma once

#include <QHash>
#include <QString>

#include <array>

/// Lets texts that are the same share their memory, as names and values of the thousands of commands that are
/// read at the start do.
class TextPool
{
public:
    const QString& text(const QStringRef& text)
    {
        // A text whose place is taken by another one takes it over, so whatever there is to read, the pool
        // does not grow.
        QString& place = m_texts[qHash(text) % m_texts.size()];
        if (place != text)
            place = text.toString();
        return place;
    }

private:
    std::array<QString, 1024> m_texts;
};

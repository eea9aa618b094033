#include "FilmStrip.h"

#include <QtGlobal>

FilmStrip::FilmStrip(int stripWidth, int frameWidth)
    : FilmStrip(frameWidth > 0 ? stripWidth / frameWidth : 0)
{ }

FilmStrip FilmStrip::singleFrame()
{
    return FilmStrip(1);
}

void FilmStrip::step()
{
    // The sum is wider than an int, as any frame may have been set.
    if (m_count > 0)
        m_current = int((qint64(m_current) + 1) % m_count);
}

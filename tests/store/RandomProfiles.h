#pragma once

#include <Profile.h>

#include <QRandomGenerator>

/// Profiles of all shapes, the same for the same seed.
class RandomProfiles
{
public:
    explicit RandomProfiles(quint32 seed)
        : m_random(seed)
    { }

    Profile profile();
    cJsonValue macro();
    cJsonValue json(int depth = 0);
    QString text();
    QString uid();
    int number(int below) { return m_random.bounded(below); }
    bool coin() { return m_random.bounded(2) == 1; }

private:
    QRandomGenerator m_random;
};

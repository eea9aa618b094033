#pragma once

#include <QFont>
#include <QString>

/// A font whose letters keep their size in pixels at any resolution of the screen.
///
/// Its design size is in points as meant at 96 dots per inch; the point size of the font is the design size
/// times 96 by the screen's horizontal dots per inch. It can be handed on as a plain QFont, which keeps the
/// scaled point size.
class cScaledFont : public QFont
{
public:
    static constexpr qreal DefaultDesignSize = 12.0;

    /// A weight of -1 leaves the family's own, and `italic` false leaves the slant alone.
    explicit cScaledFont(
        const QString& family, qreal designSize = DefaultDesignSize, int weight = -1, bool italic = false);

    /// In points at 96 dots per inch.
    qreal designSize() const { return m_designSize; }
    /// A size that is not above 0 counts as the default.
    void setDesignSize(qreal designSize);

private:
    qreal m_designSize = DefaultDesignSize;
};

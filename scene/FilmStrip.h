#pragma once

/// Counts through the frames of a film strip, a picture that holds frames of one width side by side.
class FilmStrip
{
public:
    /// All of the strip that fills whole frames counts. A width of 0 or less makes no frame at all.
    FilmStrip(int stripWidth, int frameWidth);

    /// A picture that is one frame.
    static FilmStrip singleFrame();

    /// 0 for a strip that is narrower than a frame.
    int count() const { return m_count; }
    /// The frame that was set last, which need not be one of the strip.
    int current() const { return m_current; }
    void setCurrent(int frame) { m_current = frame; }
    /// Goes to the next frame, after the last one to the first. Without frames it does nothing.
    void step();

private:
    explicit FilmStrip(int count)
        : m_count(count)
    { }

    int m_count = 0;
    int m_current = 0;
};

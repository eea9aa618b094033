#pragma once

#include <QByteArray>
#include <QImage>
#include <QMap>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The application in a process of its own with data of its own, driven through the display by xdotool.
/// Points are pixels of its window.
class Journey
{
public:
    /// Starts the application and waits for its window. Check isRunning() afterwards. It has scanned for
    /// games before, unless the arguments give it data of their own. `files` are in its data folder before,
    /// by their names; one that is null is not there.
    explicit Journey(const QStringList& arguments = {}, const QMap<QString, QByteArray>& files = {});
    /// Starts another program and waits for the window whose title holds the text.
    Journey(const QString& program, const QStringList& arguments, const QString& title);
    ~Journey();

    bool isRunning() const { return m_process.state() == QProcess::Running && !m_window.isEmpty(); }

    /// Ends the application as its user does and starts it anew on the same data.
    bool restart();

    void click(const QPoint& point, int button = 1);
    void doubleClick(const QPoint& point);
    /// With a key of the keyboard held down meanwhile.
    void clickWith(const QString& key, const QPoint& point);
    /// With the left button, in steps as a hand does.
    void drag(const QPoint& from, const QPoint& to);
    /// The same, but for the release of the button.
    void dragAndHold(const QPoint& from, const QPoint& to);
    void drop();
    void moveTo(const QPoint& point);
    /// Characters, one key after the other.
    void type(const QString& text);
    /// A key or a chord in xdotool's names, as in "ctrl+q".
    void key(const QString& chord);

    /// What the window shows now.
    QImage picture() const;
    /// What an area of the window shows once two looks at it in a row show the same.
    QImage restingPicture(const QRect& area) const;
    /// What the whole screen shows now, with all windows.
    static QImage screen();
    /// What an area of it shows once two looks at it in a row show the same.
    static QImage restingScreen(const QRect& area);
    static bool saveScreen(const QString& name);
    /// Whether there is a visible window whose title holds the text.
    bool hasWindow(const QString& title) const;
    /// Waits until there is one that has the keyboard.
    bool waitForWindow(const QString& title);
    /// Waits until there is none.
    bool waitForNoWindow(const QString& title);
    /// How many windows of any program are to be seen whose title holds the text.
    static int countWindows(const QString& title);
    /// Writes what the window shows to the pictures of the build tree.
    bool savePicture(const QString& name) const;

    /// True if the window shows a message in its strip, which has an amber edge.
    bool showsMessage() const;

    /// Ids of the processes that it has started and that still run.
    QStringList childProcesses() const;

    /// Opens the help of what has the keyboard by F1, and closes it; false if another page comes up.
    bool opensHelp(const QString& title);

    /// Ends the application as its user does; false if it does not end as it should or has something to tell.
    bool end();
    /// Waits until the application has ended; false if it does not.
    bool waitForEnd();
    /// As the end of a session does.
    void askToEnd() { m_process.terminate(); }
    int exitCode() const { return m_process.exitCode(); }
    bool hasCrashed() const { return m_process.exitStatus() != QProcess::NormalExit; }
    /// All that it wrote to its standard error.
    QString errors();
    QString dataFile(const QString& name) const { return m_data.filePath(name); }

private:
    void writeSettings() const;
    void write(const QString& name, const QByteArray& content) const;
    void start(const QString& program, const QStringList& arguments, const QString& title);
    /// The ids of its visible windows whose title holds the text, one a line.
    QString windows(const QString& title) const;
    static QString xdotool(const QStringList& arguments);
    /// What makes xdotool move the pointer there.
    QStringList moveCommand(const QPoint& point) const;

    QTemporaryDir m_data;
    QStringList m_arguments;
    QProcess m_process;
    /// Id of the main window, as xdotool has it.
    QString m_window;
    QString m_errors;
};

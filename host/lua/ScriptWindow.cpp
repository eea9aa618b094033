#include "ScriptWindow.h"

#include "ScriptColors.h"

#include <EventNames.h>
#include <HelpKey.h>
#include <IProfileMgr.h>
#include <IServiceMgr.h>

#include <QCloseEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextCharFormat>
#include <QVariant>
#include <QVBoxLayout>

#include <Qsci/qscilexerlua.h>
#include <Qsci/qsciscintilla.h>

namespace {

constexpr QSize InitialSize(820, 640);
constexpr int Margin = 12;
constexpr int Spacing = 8;
constexpr int CodeTextSize = 10;
constexpr int TabWidth = 4;
constexpr int CurrentLineAlpha = 24;
constexpr long TextMargin = 6;
/// Lines that the output keeps.
constexpr int OutputLines = 5000;
constexpr int NumberMargin = 0;
constexpr int BadLineMarker = 1;

QFont codeFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch())
        font.setFamily(QStringLiteral("Liberation Mono"));
    font.setPointSize(CodeTextSize);
    return font;
}

QsciLexerLua* makeLexer(QObject* parent)
{
    auto* const lexer = new QsciLexerLua(parent);
    const QFont font = codeFont();
    lexer->setDefaultPaper(QColor(ScriptColors::Paper));
    lexer->setDefaultColor(QColor(ScriptColors::Text));
    lexer->setDefaultFont(font);
    // All styles first: those that the lexer gives a look of their own are made for white paper.
    lexer->setPaper(QColor(ScriptColors::Paper), -1);
    lexer->setColor(QColor(ScriptColors::Text), -1);
    lexer->setFont(font, -1);
    const auto setColor = [lexer](QRgb color, std::initializer_list<int> styles) {
        for (const int style : styles)
            lexer->setColor(QColor(color), style);
    };
    setColor(ScriptColors::Comment, {QsciLexerLua::Comment, QsciLexerLua::LineComment});
    setColor(ScriptColors::Keyword, {QsciLexerLua::Keyword, QsciLexerLua::Label});
    setColor(
        ScriptColors::String, {QsciLexerLua::String, QsciLexerLua::Character, QsciLexerLua::LiteralString});
    setColor(ScriptColors::BadText, {QsciLexerLua::UnclosedString});
    setColor(ScriptColors::Number, {QsciLexerLua::Number});
    setColor(ScriptColors::Library,
        {QsciLexerLua::BasicFunctions, QsciLexerLua::StringTableMathsFunctions,
            QsciLexerLua::CoroutinesIOSystemFacilities});
    return lexer;
}

} // namespace

ScriptWindow::ScriptWindow(IProfileMgr& profiles, const QString& profileId, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_profiles(profiles)
    , m_profileId(profileId)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    setProperty("uiType", QStringLiteral("ScriptWindow"));
    createEditor();
    createOutput();
    auto* const splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_editor);
    auto* const lower = new QWidget;
    auto* const lowerLayout = new QVBoxLayout(lower);
    lowerLayout->setContentsMargins(0, 0, 0, 0);
    lowerLayout->setSpacing(Spacing / 2);
    auto* const caption = new QLabel(tr("Output"));
    caption->setProperty("uiType", QStringLiteral("QuietText"));
    lowerLayout->addWidget(caption);
    lowerLayout->addWidget(m_output, 1);
    splitter->addWidget(lower);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addWidget(createBar());
    layout->addWidget(splitter, 1);
    layout->addWidget(createStatus());
    resize(InitialSize);

    loadText();
    connect(m_editor, SIGNAL(textChanged()), this, SLOT(onTextChanged()));
    connect(m_editor, SIGNAL(cursorPositionChanged(int, int)), this, SLOT(onCursorMoved(int, int)));
    connect(m_editor, SIGNAL(modificationChanged(bool)), this, SLOT(updateState()));
    new HelpKey(QStringLiteral("scripts.htm"), this);
    onCursorMoved(0, 0);
    updateState();
    m_editor->setFocus();
    IServiceMgr::instance()->subscribe(EventSources::ProfileMgr, this, Events::HandlerPrefix);
}

ScriptWindow::~ScriptWindow()
{
    IServiceMgr::instance()->unsubscribe(EventSources::ProfileMgr, this);
}

void ScriptWindow::createEditor()
{
    m_editor = new QsciScintilla;
    m_editor->setAccessibleName(tr("Script"));
    m_editor->setUtf8(true);
    m_editor->setEolMode(QsciScintilla::EolUnix);
    m_editor->setLexer(makeLexer(m_editor));
    m_editor->setFrameShape(QFrame::NoFrame);

    m_editor->setMarginType(NumberMargin, QsciScintilla::NumberMargin);
    m_editor->setMarginsFont(codeFont());
    m_editor->setMarginsBackgroundColor(QColor(ScriptColors::Margin));
    m_editor->setMarginsForegroundColor(QColor(ScriptColors::LineNumber));
    // The margin of symbols; a bad line is coloured as a whole.
    m_editor->setMarginWidth(1, 0);
    m_editor->markerDefine(QsciScintilla::Background, BadLineMarker);
    m_editor->setMarkerBackgroundColor(QColor(ScriptColors::BadLine), BadLineMarker);

    m_editor->setCaretForegroundColor(QColor(ScriptColors::Text));
    m_editor->setCaretLineVisible(true);
    m_editor->setCaretLineBackgroundColor(QColor(ScriptColors::CurrentLine));
    // So that the mark of a bad line shows through.
    m_editor->SendScintilla(QsciScintilla::SCI_SETCARETLINEBACKALPHA, CurrentLineAlpha);
    m_editor->SendScintilla(QsciScintilla::SCI_SETMARGINLEFT, 0UL, TextMargin);
    m_editor->setSelectionBackgroundColor(QColor(ScriptColors::Selection));
    m_editor->setSelectionForegroundColor(Qt::white);
    m_editor->setTabWidth(TabWidth);
    m_editor->setIndentationsUseTabs(false);
    m_editor->setAutoIndent(true);
    m_editor->setIndentationGuides(true);
    m_editor->setIndentationGuidesForegroundColor(QColor(ScriptColors::Guide));
    m_editor->setIndentationGuidesBackgroundColor(QColor(ScriptColors::Paper));
    m_editor->setBraceMatching(QsciScintilla::SloppyBraceMatch);
    m_editor->setMatchedBraceBackgroundColor(QColor(ScriptColors::Selection));
    m_editor->setMatchedBraceForegroundColor(Qt::white);
    m_editor->setUnmatchedBraceBackgroundColor(QColor(ScriptColors::Paper));
    m_editor->setUnmatchedBraceForegroundColor(QColor(ScriptColors::BadText));
    m_editor->setScrollWidth(1);
    m_editor->setScrollWidthTracking(true);
}

void ScriptWindow::createOutput()
{
    m_output = new QPlainTextEdit;
    m_output->setAccessibleName(tr("Output"));
    m_output->setReadOnly(true);
    m_output->setFont(codeFont());
    m_output->setMaximumBlockCount(OutputLines);
}

QPushButton* ScriptWindow::addButton(const QString& text, const QKeySequence& shortcut, const char* slot)
{
    auto* const button = new QPushButton(text);
    button->setToolTip(shortcut.toString(QKeySequence::NativeText));
    connect(button, SIGNAL(clicked()), this, slot);
    // Clicked as by hand, so that a disabled button's key does nothing.
    connect(new QShortcut(shortcut, this), SIGNAL(activated()), button, SLOT(click()));
    return button;
}

QWidget* ScriptWindow::createBar()
{
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    m_run = addButton(tr("&Run"), QKeySequence(Qt::Key_F5), SLOT(onRun()));
    m_run->setProperty("uiType", QStringLiteral("acceptbutton"));
    m_stop = addButton(tr("S&top"), QKeySequence(Qt::SHIFT + Qt::Key_F5), SIGNAL(stopAsked()));
    m_save = addButton(tr("&Save"), QKeySequence(QKeySequence::Save), SLOT(onSave()));
    layout->addWidget(m_run);
    layout->addWidget(m_stop);
    layout->addStretch(1);
    layout->addWidget(m_save);
    return bar;
}

QWidget* ScriptWindow::createStatus()
{
    auto* const status = new QWidget;
    auto* const layout = new QHBoxLayout(status);
    layout->setContentsMargins(0, 0, 0, 0);
    m_state = new QLabel;
    m_place = new QLabel;
    for (QLabel* label : {m_state, m_place}) {
        label->setTextFormat(Qt::PlainText);
        label->setProperty("uiType", QStringLiteral("QuietText"));
    }
    layout->addWidget(m_state, 1);
    layout->addWidget(m_place);
    return status;
}

QString ScriptWindow::text() const
{
    return m_editor->text();
}

QString ScriptWindow::output() const
{
    return m_output->toPlainText();
}

void ScriptWindow::loadText()
{
    const QString script = m_profiles.getProfileScript(m_profileId);
    m_editor->setText(script);
    m_editor->setModified(false);
    // What the editor can't hold it must not write back.
    const bool isWhole = m_editor->text() == script;
    m_editor->setReadOnly(!isWhole);
    if (!isWhole)
        appendMessage(
            tr("This script holds characters that can't be edited here. It stays as it is."), Tone::Bad);
}

void ScriptWindow::storeText()
{
    if (m_isGone || !m_editor->isModified() || m_editor->isReadOnly())
        return;
    // First, so that the event of this very change finds nothing to do.
    m_editor->setModified(false);
    m_profiles.setProfileScript(m_profileId, m_editor->text());
}

void ScriptWindow::onSave()
{
    storeText();
}

void ScriptWindow::onRun()
{
    storeText();
    Q_EMIT runAsked(m_profileId, m_editor->text());
}

void ScriptWindow::beginRun()
{
    m_output->clear();
    markLine(0);
}

void ScriptWindow::setRunning(bool running)
{
    m_isRunning = running;
    updateState();
}

void ScriptWindow::appendOutput(const QString& text)
{
    QTextCursor cursor(m_output->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text, QTextCharFormat());
    m_output->verticalScrollBar()->setValue(m_output->verticalScrollBar()->maximum());
}

void ScriptWindow::appendMessage(const QString& text, Tone tone)
{
    QTextCursor cursor(m_output->document());
    cursor.movePosition(QTextCursor::End);
    if (!cursor.atBlockStart())
        cursor.insertBlock();
    QTextCharFormat format;
    format.setForeground(QColor(tone == Tone::Bad ? ScriptColors::BadText : ScriptColors::LineNumber));
    cursor.insertText(text + QLatin1Char('\n'), format);
    m_output->verticalScrollBar()->setValue(m_output->verticalScrollBar()->maximum());
}

void ScriptWindow::markLine(int line)
{
    m_editor->markerDeleteAll(BadLineMarker);
    if (line < 1 || line > m_editor->lines())
        return;
    m_editor->markerAdd(line - 1, BadLineMarker);
    m_editor->setCursorPosition(line - 1, 0);
    m_editor->ensureLineVisible(line - 1);
}

void ScriptWindow::onTextChanged()
{
    m_editor->markerDeleteAll(BadLineMarker);
    updateState();
}

void ScriptWindow::onCursorMoved(int line, int column)
{
    m_place->setText(tr("Line %1, column %2").arg(line + 1).arg(column + 1));
}

void ScriptWindow::updateState()
{
    // As wide as the largest number needs, and a little room.
    m_editor->setMarginWidth(NumberMargin, QStringLiteral("0%1").arg(qMax(99, m_editor->lines())));
    setWindowTitle(tr("Script of %1").arg(m_profiles.getProfileName(m_profileId)));
    m_state->setText(m_isRunning     ? tr("Running...")
            : m_editor->isModified() ? tr("Changed")
                                     : tr("Kept with the profile"));
    m_save->setEnabled(m_editor->isModified());
    m_run->setEnabled(!m_isRunning);
    m_stop->setEnabled(m_isRunning);
}

void ScriptWindow::closeEvent(QCloseEvent* event)
{
    storeText();
    QWidget::closeEvent(event);
}

void ScriptWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && m_editor)
        storeText();
}

bool ScriptWindow::isOwn(const QString& profileID) const
{
    return profileID.compare(m_profileId, Qt::CaseInsensitive) == 0;
}

void ScriptWindow::onProfilePropertyChanged(const QString& profileID)
{
    if (!isOwn(profileID))
        return;
    if (!m_editor->isModified() && m_profiles.getProfileScript(m_profileId) != m_editor->text()
        && !m_editor->isReadOnly())
        loadText();
    updateState();
}

void ScriptWindow::onProfileDeleted(const QString& profileID)
{
    if (!isOwn(profileID))
        return;
    m_isGone = true;
    close();
}

#include "cTextBlockEditor.h"

#include "cTextBlockType.h"
#include "MacroTypeIds.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTextOption>
#include <QVBoxLayout>

cTextBlockEditor::cTextBlockEditor(const cJsonValue& macro)
    : cMacroForm(MacroTypeIds::TextBlock, QLatin1String("command_textblock.htm"), {"text"})
    , m_text(new QPlainTextEdit)
    , m_count(makeHint(QString()))
{
    m_text->setTabChangesFocus(true);
    // Breaking a word that is longer than a line takes time that grows with the square of its length, and a
    // pasted text may be one long word.
    m_text->setWordWrapMode(QTextOption::WordWrap);
    m_text->setAccessibleName(tr("Text"));
    formLayout()->addWidget(makeLabel(tr("&Text:"), m_text));
    formLayout()->addWidget(m_text, 1);
    formLayout()->addWidget(m_count);
    setFocusProxy(m_text);
    showCount();
    connect(m_text, SIGNAL(textChanged()), this, SLOT(onTextChanged()));
    fill(macro);
}

QString cTextBlockEditor::defaultMacroName()
{
    // The first line that has something to read.
    const QString all = text();
    int begin = 0;
    while (begin < all.size() && all[begin].isSpace())
        ++begin;
    const int end = all.indexOf(QLatin1Char('\n'), begin);
    return shortened(all.mid(begin, end < 0 ? -1 : end - begin));
}

bool cTextBlockEditor::setForm(const cJsonValue& data)
{
    const auto text = cTextBlockType::fromData(data);
    if (text)
        m_text->setPlainText(*text);
    return text.has_value();
}

cJsonValue cTextBlockEditor::formData() const
{
    return cTextBlockType::toData(text());
}

void cTextBlockEditor::clearForm()
{
    m_text->clear();
}

bool cTextBlockEditor::isFilled() const
{
    return !m_text->document()->isEmpty();
}

cMacroForm::Objection cTextBlockEditor::check()
{
    const int length = text().size();
    if (length == 0)
        return {tr("Enter the text that this command types."), m_text};
    if (length > MacroLimits::TextLength) {
        return {tr("A command types at most %L1 characters; this text has %L2.")
                    .arg(MacroLimits::TextLength)
                    .arg(length),
            m_text};
    }
    return {};
}

void cTextBlockEditor::onTextChanged()
{
    showCount();
    formChanged();
}

void cTextBlockEditor::showCount()
{
    m_count->setText(tr("%L1 of %L2 characters").arg(text().size()).arg(MacroLimits::TextLength));
}

QString cTextBlockEditor::text() const
{
    // Not toPlainText(), which makes plain spaces of those that don't break.
    return m_text->document()->toRawText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

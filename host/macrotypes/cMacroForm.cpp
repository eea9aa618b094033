#include "cMacroForm.h"

#include "FormSizes.h"
#include "MacroTypeIds.h"

#include <IServiceMgr.h>
#include <ServiceNames.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyle>
#include <QVBoxLayout>

namespace {

const QString HelpSection = QStringLiteral("com.veltrano.profile");
/// The name field of the command editor, around the pages.
const QLatin1String NameFieldUiType("meLineEdit");
/// What the pages last proposed, kept on the name field because all pages share it.
constexpr char ProposedName[] = "proposedName";
/// Marks a field that needs a change, for the style sheet.
constexpr char NeedsChange[] = "needsChange";
/// Marks a field that shows its placeholder; style sheets have no other way to give that a colour.
constexpr char IsVacant[] = "isVacant";

void setLook(QWidget* widget, const char* property, bool isSet)
{
    widget->setProperty(property, isSet);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

cMacroForm::cMacroForm(const QString& typeId, QLatin1String helpTopic, const QStringList& fields)
    : m_typeId(typeId)
    , m_helpTopic(helpTopic)
    , m_fields(fields)
    , m_formLayout(new QVBoxLayout)
    , m_message(new QLabel)
{
    setProperty("uiType", QStringLiteral("meForm"));
    m_formLayout->setSpacing(FormSizes::Spacing);
    m_message->setProperty("uiType", QStringLiteral("meMessage"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(FormSizes::Margin, FormSizes::Margin, FormSizes::Margin, FormSizes::Margin);
    layout->setSpacing(FormSizes::Gap);
    layout->addLayout(m_formLayout, 1);
    layout->addWidget(m_message);
}

cJsonValue cMacroForm::data()
{
    if (!m_isChanged)
        return m_original;
    // What the form could not show is replaced as a whole.
    cJsonValue result = m_isShown ? m_original : cJsonValue(cJsonValue::objectValue);
    const cJsonValue form = formData();
    for (const QString& field : qAsConst(m_fields)) {
        const QByteArray key = field.toUtf8();
        if (form.contains(key.constData()))
            result[field] = form[key.constData()];
        else
            result.deleteKey(field);
    }
    return result;
}

bool cMacroForm::onOK()
{
    stop();
    // A command whose program is gone can still be renamed.
    const Objection objection = isUntouched() ? Objection() : check();
    say(objection.text, objection.field);
    return objection.text.isEmpty();
}

bool cMacroForm::canAddMacro()
{
    return isUntouched() || isFilled();
}

bool cMacroForm::onCancel()
{
    stop();
    return true;
}

void cMacroForm::onHelp()
{
    const QString topic = m_helpTopic;
    IServiceMgr::instance()->invoke(ServiceNames::HelpMgr, QStringLiteral("LaunchHelp"),
        Q_ARG(QString, HelpSection), Q_ARG(QString, topic));
}

void cMacroForm::onClearForm()
{
    stop();
    {
        const QScopedValueRollback<bool> filling(m_isFilling, true);
        clearForm();
        m_original.clear();
    }
    m_isChanged = false;
    m_isShown = false;
    say(QString());
    emit nameChanged(nextName());
}

QString cMacroForm::message() const
{
    return m_message->text();
}

void cMacroForm::fill(const cJsonValue& macro)
{
    if (macro.isNull())
        return;
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    m_original = macro["data"];
    m_name = macro["display_name"].toString();
    m_isShown = setForm(m_original);
    if (!m_isShown) {
        clearForm();
        say(tr(
            "This command holds something that can't be shown here. If you fill in the form and save, that "
            "is replaced."));
    }
    m_proposal = defaultMacroName();
}

void cMacroForm::formChanged()
{
    if (m_isFilling)
        return;
    m_isChanged = true;
    say(QString());
    emit nameChanged(nextName());
}

void cMacroForm::say(const QString& text, QWidget* field)
{
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
    mark(field);
    if (text.isEmpty())
        return;
    if (field)
        field->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent event(m_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QLabel* cMacroForm::makeLabel(const QString& text, QWidget* field)
{
    auto* const label = new QLabel(text);
    label->setProperty("uiType", QStringLiteral("meNameLabel"));
    label->setBuddy(field);
    return label;
}

QLabel* cMacroForm::makeHint(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setProperty("uiType", QStringLiteral("QuietText"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QString cMacroForm::shortened(const QString& text)
{
    // Cut first: a text may be long, and simplifying reads all of it.
    QString name = text.left(4 * MacroLimits::NameLength).simplified();
    if (name.size() <= MacroLimits::NameLength)
        return name;
    name.truncate(MacroLimits::NameLength - 1);
    if (name.at(name.size() - 1).isHighSurrogate())
        name.chop(1);
    return name.trimmed() + QChar(0x2026);
}

QLineEdit* cMacroForm::makeLineEdit(const QString& accessibleName, const QString& vacantText)
{
    auto* const field = new QLineEdit;
    field->setAccessibleName(accessibleName);
    field->setPlaceholderText(vacantText);
    field->setProperty(IsVacant, true);
    connect(field, SIGNAL(textChanged(QString)), this, SLOT(onLineEditChanged(QString)));
    return field;
}

void cMacroForm::onLineEditChanged(const QString& text)
{
    auto* const field = qobject_cast<QWidget*>(sender());
    if (field && field->property(IsVacant).toBool() != text.isEmpty())
        setLook(field, IsVacant, text.isEmpty());
}

void cMacroForm::mark(QWidget* field)
{
    if (m_marked == field)
        return;
    if (m_marked)
        setLook(m_marked, NeedsChange, false);
    m_marked = field;
    if (field)
        setLook(field, NeedsChange, true);
}

QLineEdit* cMacroForm::nameField() const
{
    for (QWidget* widget = parentWidget(); widget; widget = widget->parentWidget()) {
        const auto fields = widget->findChildren<QLineEdit*>();
        for (QLineEdit* field : fields) {
            if (field->property("uiType").toString() == NameFieldUiType)
                return field;
        }
        if (widget->isWindow())
            break;
    }
    return nullptr;
}

QString cMacroForm::nextName()
{
    const QString proposal = defaultMacroName();
    QLineEdit* const field = nameField();
    if (field)
        m_name = field->text();
    const bool isOwn = !m_name.isEmpty() && m_name != m_proposal
        && !(field && m_name == field->property(ProposedName).toString());
    m_proposal = proposal;
    if (!isOwn || !showMacroName())
        m_name = proposal;
    if (field && m_name == proposal)
        field->setProperty(ProposedName, proposal);
    return m_name;
}

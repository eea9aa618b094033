#include "cScriptEditor.h"

#include "cScriptType.h"
#include "FormSizes.h"
#include "MacroTypeIds.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

cScriptEditor::cScriptEditor(const cJsonValue& macro)
    : cMacroForm(MacroTypeIds::Script, QLatin1String("command_script.htm"), {"function", "argument"})
    , m_function(makeLineEdit(tr("Function")))
    , m_argument(makeLineEdit(tr("Argument"), tr("None")))
{
    formLayout()->addWidget(makeLabel(tr("&Function:"), m_function));
    formLayout()->addWidget(m_function);
    formLayout()->addSpacing(FormSizes::Spacing);
    formLayout()->addWidget(makeLabel(tr("Ar&gument:"), m_argument));
    formLayout()->addWidget(m_argument);
    formLayout()->addSpacing(FormSizes::Gap);
    formLayout()->addWidget(
        makeHint(tr("Calls a function of the profile's script. The function gets the argument as a text.")));
    formLayout()->addStretch();
    for (QLineEdit* field : {m_function, m_argument})
        connect(field, SIGNAL(textChanged(QString)), this, SLOT(formChanged()));
    setFocusProxy(m_function);
    fill(macro);
}

QString cScriptEditor::defaultMacroName()
{
    const QString argument = m_argument->text();
    return shortened(argument.isEmpty() ? function() : function() + QLatin1Char(' ') + argument);
}

bool cScriptEditor::setForm(const cJsonValue& data)
{
    const auto call = cScriptType::fromData(data);
    if (call) {
        m_function->setText(call->function);
        m_argument->setText(call->argument);
    }
    return call.has_value();
}

cJsonValue cScriptEditor::formData() const
{
    return cScriptType::toData({function(), m_argument->text()});
}

void cScriptEditor::clearForm()
{
    m_function->clear();
    m_argument->clear();
}

bool cScriptEditor::isFilled() const
{
    return !function().isEmpty();
}

cMacroForm::Objection cScriptEditor::check()
{
    const QString name = function();
    if (name.isEmpty())
        return {tr("Enter the name of the script's function."), m_function};
    if (!cScriptType::isFunctionName(name)) {
        return {
            tr("\"%1\" is not the name of a function. Names have letters, digits and underscores, and don't "
               "begin with a digit.")
                .arg(name),
            m_function};
    }
    return {};
}

QString cScriptEditor::function() const
{
    return m_function->text().trimmed();
}

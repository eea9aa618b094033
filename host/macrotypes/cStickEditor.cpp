#include "cStickEditor.h"

#include <QLabel>
#include <QVBoxLayout>

cStickEditor::cStickEditor(const QString& typeId, const QString& typeName, const cJsonValue& macro)
    : cMacroForm(typeId, QLatin1String("command_stick.htm"), {})
    , m_name(macro.isNull() ? typeName : macro["name"].toString())
{
    formLayout()->addWidget(makeHint(tr("This command belongs to the stick. There is nothing to set.")));
    formLayout()->addStretch();
    fill(macro);
}

#include "cFunctionEditor.h"

#include "FormSizes.h"
#include "RecordXml.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr char Function[] = "function";

} // namespace

cFunctionEditor::cFunctionEditor(const QString& typeId, QLatin1String helpTopic,
    const NamedFunctionList& functions, const cJsonValue& macro)
    : cMacroForm(typeId, helpTopic, {QLatin1String(Function)})
    , m_functions(functions)
{
    createList();
    formLayout()->addWidget(makeLabel(tr("&Function:"), m_list));
    formLayout()->addWidget(m_list, 1);
    setFocusProxy(m_list);
    fill(macro);
}

void cFunctionEditor::createList()
{
    m_list = new QTreeWidget;
    m_list->setAccessibleName(tr("Function"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setHeaderHidden(true);
    const bool hasKeys = std::any_of(m_functions.begin(), m_functions.end(),
        [](const NamedFunction& function) { return function.keys.contains(QLatin1Char('+')); });
    m_list->setColumnCount(hasKeys ? 2 : 1);
    for (const NamedFunction& function : m_functions) {
        auto* const item = new QTreeWidgetItem(m_list, {tr(function.name)});
        item->setSizeHint(0, QSize(0, m_list->fontMetrics().height() + FormSizes::RowPadding));
        if (!hasKeys)
            continue;
        item->setText(1, function.keys);
        item->setData(0, Qt::AccessibleTextRole, tr("%1, %2").arg(item->text(0), function.keys));
    }
    m_list->header()->setSectionResizeMode(QHeaderView::Stretch);
    connect(m_list, SIGNAL(itemSelectionChanged()), this, SLOT(onSelectionChanged()));
}

QString cFunctionEditor::defaultMacroName()
{
    if (const NamedFunction* function = selected())
        return QLatin1String(function->name);
    return isUntouched() ? original()[Function].toString() : QString();
}

void cFunctionEditor::setMacroName(QString macroName)
{
    if (!selected() && !isUntouched())
        select(macroName);
}

bool cFunctionEditor::setForm(const cJsonValue& data)
{
    return RecordXml::isText(data[Function]) && select(data[Function].toString());
}

cJsonValue cFunctionEditor::formData() const
{
    cJsonValue data;
    if (const NamedFunction* function = selected())
        data[Function] = function->name;
    return data;
}

void cFunctionEditor::clearForm()
{
    m_list->setCurrentItem(nullptr);
    m_list->clearSelection();
}

cMacroForm::Objection cFunctionEditor::check()
{
    return selected() ? Objection() : Objection {tr("Choose what this command does."), m_list};
}

void cFunctionEditor::showEvent(QShowEvent* event)
{
    cMacroForm::showEvent(event);
    // A list that is not shown does not scroll to what is selected.
    if (m_list->currentItem())
        m_list->scrollToItem(m_list->currentItem());
}

void cFunctionEditor::onSelectionChanged()
{
    formChanged();
}

bool cFunctionEditor::select(const QString& name)
{
    const NamedFunction* function = NamedFunctions::find(m_functions, name);
    if (!function)
        return false;
    m_list->setCurrentItem(m_list->topLevelItem(int(function - m_functions.data())));
    return true;
}

const NamedFunction* cFunctionEditor::selected() const
{
    const QList<QTreeWidgetItem*> items = m_list->selectedItems();
    if (items.isEmpty())
        return nullptr;
    return &m_functions[std::size_t(m_list->indexOfTopLevelItem(items.first()))];
}

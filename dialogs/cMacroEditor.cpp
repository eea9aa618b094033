#include "cMacroEditor.h"

#include "cMacroEditPage.h"
#include "cMacroTypeIconList.h"
#include "DialogConstants.h"
#include "DialogSetup.h"

#include <cECMAScript.h>

#include <QHBoxLayout>
#include <QKeyEvent>

#include <utility>

cMacroEditor::cMacroEditor(const cJsonValue& macro, QWidget* parent, bool withAddButton)
    : QDialog(parent)
    , m_isNew(macro.isNull())
    , m_macro(macro)
    , m_iconList(new cMacroTypeIconList)
    , m_page(new cMacroEditPage(m_macro, this, withAddButton))
{
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(DialogConstants::EditorSpacing);
    layout->addWidget(m_iconList);
    layout->addWidget(m_page, 1);
    connect(m_page, SIGNAL(accepted(int)), this, SLOT(done(int)));
    connect(m_page, SIGNAL(rejected(int)), this, SLOT(done(int)));
    connect(
        m_page, SIGNAL(macroEditorClosed(const QString&)), this, SIGNAL(macroEditorClosed(const QString&)));
    setLayout(layout);
    setWindowTitle(tr("Command Editor"));
    DialogSetup::apply(*this);

    connect(m_iconList, SIGNAL(macroTypeSelected(int)), this, SLOT(changePage(int)));
    if (m_isNew)
        m_iconList->setCurrentIndex(0);
    else
        m_iconList->setCurrentMacroType(std::as_const(m_macro)["namespace"].toString());
    m_page->focusFirstField();
    cECMAScript().newObject(this, QStringLiteral("CommandEditor"));
}

void cMacroEditor::changePage(int idx)
{
    m_page->changePage(idx);
}

void cMacroEditor::setCurrentIndex(int index)
{
    m_iconList->setCurrentIndex(index);
}

int cMacroEditor::count()
{
    return m_iconList->count();
}

void cMacroEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1)
        m_page->onHelp();
    else
        QDialog::keyPressEvent(event);
}

#include "cMacroEditPage.h"

#include "DialogConstants.h"

#include <cHelpMgr.h>
#include <cMacroBindingView.h>
#include <cMacroTypeMgr.h>
#include <cProfileMgr.h>
#include <FixedIds.h>
#include <HelpTopics.h>

#include <QComboBox>
#include <QFont>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QUuid>
#include <QVariant>
#include <QVBoxLayout>

#include <utility>

using namespace DialogConstants;

namespace {

/// The property of a form that holds the name of its type.
constexpr char MacroTypeProperty[] = "MacroType";

/// The repeat options, as the entries of the box hold them.
enum class Repeat { None, WhilePressed, Toggle };
const QLatin1String WhilePressedMode("whilepressed");
const QLatin1String ToggleMode("toggle");

bool isBuiltIn(const QString& typeNamespace)
{
    return typeNamespace == MacroNamespaces::MouseFunction || typeNamespace == MacroNamespaces::Media
        || typeNamespace == MacroNamespaces::Hotkeys;
}

QString currentProfile()
{
    return cMacroBindingView::instance()->getProfileId();
}

QFont scaled(QFont font, qreal factor)
{
    if (font.pixelSize() > 0)
        font.setPixelSize(qRound(font.pixelSize() * factor));
    else
        font.setPointSizeF(font.pointSizeF() * factor);
    return font;
}

void setUiType(QWidget* widget, const char* uiType)
{
    widget->setProperty("uiType", QString::fromLatin1(uiType));
}

} // namespace

cMacroEditPage::cMacroEditPage(const cJsonValue& macro, QWidget* parent, bool withAddButton)
    : QWidget(parent)
    , m_macro(macro)
    , m_isNew(macro.isNull())
{
    setUiType(this, "meBackground");
    createNameField();
    createEditors();
    createRepeatOptions();
    createButtons(withAddButton);
}

void cMacroEditPage::createNameField()
{
    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins(PageMargins);
    m_layout->setSpacing(PageSpacing);
    m_titleLabel = new QLabel(this);
    m_titleLabel->setTextFormat(Qt::PlainText);
    setUiType(m_titleLabel, "DialogTitle");
    m_titleLabel->setFont(scaled(font(), TitleScale));
    m_nameLabel = new QLabel(tr("Name:"), this);
    setUiType(m_nameLabel, "meNameLabel");
    m_nameEdit = new QLineEdit(this);
    setUiType(m_nameEdit, "meLineEdit");
    m_nameEdit->setContextMenuPolicy(Qt::NoContextMenu);
    m_nameLabel->setBuddy(m_nameEdit);
    m_layout->addWidget(m_titleLabel);
    m_layout->addSpacing(PageSpacing);
    m_layout->addWidget(m_nameLabel);
    m_layout->addWidget(m_nameEdit);
    if (!m_isNew)
        m_nameEdit->setText(std::as_const(m_macro)["display_name"].toString());
    connect(m_nameEdit, SIGNAL(textChanged(const QString&)), this,
        SLOT(macroEditPageNameChanged(const QString&)));
}

void cMacroEditPage::createEditors()
{
    m_stack = new QStackedWidget(this);
    const QString typeOfRecord = std::as_const(m_macro)["namespace"].toString();
    const IMacroTypePtrList types = cMacroTypeMgr().getAllMacroTypes();
    for (const cMacroTypePtr& type : types) {
        if (!type)
            continue;
        const cJsonValue info = type->info();
        const QString typeName = info["displayname"].toString();
        const bool isMatch = !m_isNew && info["uid"].toString() == typeOfRecord;
        if (type->isPrivate()) {
            if (isMatch)
                m_titleLabel->setText(typeName);
            continue;
        }
        m_stack->addWidget(createEditor(*type, typeName, isMatch));
    }
    if (m_currentEditor && !m_currentEditor->showMacroName())
        showName(false);
    m_layout->addWidget(m_stack);

    m_noFormLabel = new QLabel(tr("There is nothing to set for this kind of command."), this);
    setUiType(m_noFormLabel, "QuietText");
    m_noFormLabel->setWordWrap(true);
    m_layout->addWidget(m_noFormLabel);
    m_noFormLabel->setVisible(!m_currentEditor);
    m_stack->setVisible(m_currentEditor);
}

QWidget* cMacroEditPage::createEditor(IMacroType& type, const QString& typeName, bool isMatch)
{
    IMacroEditor* const editor = type.editor(isMatch ? m_macro : cJsonValue());
    // Places in the stack are places in the column of icons, also behind a type that has no form.
    if (!editor)
        return new QWidget;
    editor->setProperty(MacroTypeProperty, typeName);
    connect(editor, SIGNAL(nameChanged(const QString&)), this, SLOT(macroNameChanged(const QString&)));
    if (isMatch || (m_isNew && !m_currentEditor))
        m_currentEditor = editor;
    return editor;
}

void cMacroEditPage::createRepeatOptions()
{
    m_repeatGroup = new QGroupBox(this);
    setUiType(m_repeatGroup, "GroupBoxTitleWhite");
    // A group box measures its frame with the title and not again when the style sheet comes.
    m_repeatGroup->ensurePolished();
    m_repeatGroup->setTitle(tr("Repeat Options"));
    m_repeatCombo = new QComboBox(m_repeatGroup);
    m_repeatCombo->addItem(tr("None"), int(Repeat::None));
    m_repeatCombo->addItem(tr("While Pressed"), int(Repeat::WhilePressed));
    m_repeatCombo->addItem(tr("Toggle"), int(Repeat::Toggle));
    m_repeatCombo->setAccessibleName(m_repeatGroup->title());
    connect(m_repeatCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(onRepeatOptionChanged(int)));
    auto* const delayLabel = new QLabel(tr("Delay (milliseconds):"), m_repeatGroup);
    m_delayEdit = new QLineEdit(QString::number(UsualRepeatDelay), m_repeatGroup);
    m_delayEdit->setContextMenuPolicy(Qt::NoContextMenu);
    m_delayEdit->setValidator(new QIntValidator(0, MaxRepeatDelay, m_delayEdit));
    m_delayEdit->setMaximumWidth(RepeatDelayMaxWidth);
    m_delayEdit->setEnabled(false);
    delayLabel->setBuddy(m_delayEdit);
    showRepeat();

    auto* const delayRow = new QHBoxLayout;
    delayRow->setSpacing(RepeatSpacing);
    delayRow->addWidget(delayLabel);
    delayRow->addWidget(m_delayEdit);
    delayRow->addStretch();
    auto* const group = new QVBoxLayout(m_repeatGroup);
    group->setContentsMargins(RepeatMargins);
    group->setSpacing(RepeatSpacing);
    group->addWidget(m_repeatCombo);
    group->addLayout(delayRow);
    m_layout->addStretch(PageStretch);
    m_layout->addWidget(m_repeatGroup);
}

void cMacroEditPage::showRepeat()
{
    const cJsonValue& macro = m_macro;
    if (!macro.contains("repeat"))
        return;
    const cJsonValue& repeat = macro["repeat"];
    const QString mode = repeat["mode"].toString();
    const Repeat option = mode == WhilePressedMode ? Repeat::WhilePressed
        : mode == ToggleMode                       ? Repeat::Toggle
                                                   : Repeat::None;
    m_repeatCombo->setCurrentIndex(m_repeatCombo->findData(int(option)));
    m_delayEdit->setEnabled(option != Repeat::None);
    m_delayEdit->setText(repeat["delay"].toString());
}

void cMacroEditPage::createButtons(bool withAddButton)
{
    auto* const row = new QHBoxLayout;
    row->addSpacerItem(new QSpacerItem(0, 0));
    row->setStretch(0, 1);
    m_okButton = createButton(tr("OK"), "acceptbutton", SLOT(ok()));
    m_okButton->setDefault(true);
    m_cancelButton = createButton(tr("Cancel"), "grayButton", SLOT(cancel()));
    row->addWidget(m_okButton);
    row->addWidget(m_cancelButton);
    if (withAddButton) {
        m_addButton = createButton(tr("Add"), "grayButton", SLOT(add()));
        if (m_isNew)
            row->addWidget(m_addButton);
        else
            m_addButton->hide();
    }
    row->addWidget(createButton(tr("Help"), "grayButton", SLOT(onHelp())));
    setSavable(!m_isNew);

    m_layout->addSpacerItem(new QSpacerItem(0, ButtonRowGap));
    m_layout->addLayout(row);
    m_layout->addSpacerItem(new QSpacerItem(0, 0));
    m_layout->setStretch(m_layout->count() - 1, 1);
}

QPushButton* cMacroEditPage::createButton(const QString& text, const char* uiType, const char* slot)
{
    auto* const button = new QPushButton(text, this);
    setUiType(button, uiType);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

void cMacroEditPage::changePage(int idx)
{
    auto* const next = qobject_cast<IMacroEditor*>(m_stack->widget(idx));
    if (!next)
        return;
    if (IMacroEditor* const left = editorInFront())
        left->onCancel();
    const QString name = m_nameEdit->text();
    const bool showsName = next->showMacroName();
    showName(showsName);
    if (!showsName && !name.isEmpty())
        next->setMacroName(name);
    setSavable(showsName ? !name.isEmpty() : !next->defaultMacroName().isEmpty());
    m_noFormLabel->hide();
    m_stack->show();
    m_stack->setCurrentIndex(idx);
    m_currentEditor = next;
    m_titleLabel->setText(next->property(MacroTypeProperty).toString());
    cMacroTypeMgr types;
    if (const cMacroTypePtr type = types.getMacroTypeByID(next->getMacroTypeID()))
        m_repeatGroup->setVisible(type->isRepeatable());
}

void cMacroEditPage::focusFirstField()
{
    QWidget* const field =
        m_nameEdit->isEnabled() || !m_currentEditor ? static_cast<QWidget*>(m_nameEdit) : m_currentEditor;
    field->setFocus(Qt::OtherFocusReason);
}

void cMacroEditPage::macroEditPageNameChanged(const QString& name)
{
    macroNameChanged(name);
}

void cMacroEditPage::macroNameChanged(const QString& name)
{
    if (m_nameEdit->text() != name)
        m_nameEdit->setText(name);
    const bool isSavable = !name.isEmpty() && (m_currentEditor ? m_currentEditor->canAddMacro() : !m_isNew);
    setSavable(isSavable);
    // It reads "Close" after an add.
    if (isSavable && m_cancelButton)
        m_cancelButton->setText(tr("Cancel"));
}

void cMacroEditPage::onRepeatOptionChanged(int optionIdx)
{
    if (m_delayEdit)
        m_delayEdit->setEnabled(m_repeatCombo->itemData(optionIdx).toInt() != int(Repeat::None));
}

void cMacroEditPage::onHelp()
{
    if (m_currentEditor)
        m_currentEditor->onHelp();
    else
        cHelpMgr().LaunchHelp(HelpTopics::Section, HelpTopics::View);
}

void cMacroEditPage::cancel()
{
    if (!m_currentEditor || m_currentEditor->onCancel())
        emit rejected(0);
}

void cMacroEditPage::ok()
{
    if (!isFormRight())
        return;
    fillRecord();
    const QString profile = currentProfile();
    cProfileMgr profiles;
    if (!m_isNew) {
        const QString uid = std::as_const(m_macro)["uid"].toString();
        profiles.getMacroByID(profile, uid);
        if (!profiles.canMacroBeChangedTo(profile, uid, m_macro)) {
            emit rejected(0);
            return;
        }
    }
    const cJsonValue builtIn = findBuiltIn(profiles, profile);
    const QString uid =
        m_isNew ? saveNew(profiles, profile, builtIn) : saveEdited(profiles, profile, builtIn);
    emit macroEditorClosed(uid);
    emit accepted(1);
}

void cMacroEditPage::add()
{
    if (!isFormRight())
        return;
    fillRecord();
    const QString profile = currentProfile();
    cProfileMgr profiles;
    const cJsonValue builtIn = findBuiltIn(profiles, profile);
    const QString uid = saveNew(profiles, profile, builtIn);
    if (!builtIn.isNull()) {
        emit macroEditorClosed(uid);
        return;
    }
    m_nameEdit->clear();
    m_nameEdit->setFocus(Qt::OtherFocusReason);
    if (IMacroEditor* const editor = editorInFront())
        editor->onClearForm();
    m_cancelButton->setText(tr("Close"));
    // A type with fixed names shows no name field; the button that was pressed is disabled by now.
    focusFirstField();
}

bool cMacroEditPage::isFormRight()
{
    if (m_currentEditor && !m_currentEditor->onOK())
        return false;
    // Without a form there is nothing of which a new command could be made.
    return m_currentEditor || !m_isNew;
}

IMacroEditor* cMacroEditPage::editorInFront() const
{
    return qobject_cast<IMacroEditor*>(m_stack->currentWidget());
}

void cMacroEditPage::showName(bool isShown)
{
    m_nameLabel->setVisible(isShown);
    m_nameEdit->setVisible(isShown);
    m_nameEdit->setEnabled(isShown);
}

void cMacroEditPage::setSavable(bool isSavable)
{
    // A form may speak while the page is still being put together.
    for (QPushButton* button : {m_okButton, m_addButton}) {
        if (button)
            button->setEnabled(isSavable);
    }
}

void cMacroEditPage::fillRecord()
{
    fillName();
    if (m_currentEditor) {
        m_macro["namespace"] = m_currentEditor->getMacroTypeID();
        m_macro["data"] = m_currentEditor->data();
    }
    fillRepeat();
}

void cMacroEditPage::fillName()
{
    if (m_currentEditor && !m_currentEditor->showMacroName()) {
        const QString name = m_currentEditor->defaultMacroName();
        m_macro["name"] = name;
        m_macro["display_name"] = tr(name.toLatin1().constData());
    } else if (m_currentEditor || m_nameEdit->text() != std::as_const(m_macro)["display_name"].toString()) {
        m_macro["name"] = m_nameEdit->text();
        m_macro["display_name"] = m_nameEdit->text();
    }
}

void cMacroEditPage::fillRepeat()
{
    const auto option = Repeat(m_repeatCombo->currentData().toInt());
    if (option != Repeat::WhilePressed && option != Repeat::Toggle) {
        m_macro.deleteKey(QStringLiteral("repeat"));
        return;
    }
    cJsonValue& repeat = m_macro["repeat"];
    if (!repeat.isObject())
        repeat.clear();
    repeat["mode"] = QString(option == Repeat::Toggle ? ToggleMode : WhilePressedMode);
    repeat["delay"] = m_delayEdit->text().toInt();
}

cJsonValue cMacroEditPage::findBuiltIn(cProfileMgr& profiles, const QString& profile) const
{
    const QString type = m_macro["namespace"].toString();
    if (!isBuiltIn(type))
        return cJsonValue();
    return profiles.getMacroByTypeAndName(profile, type, m_macro["name"].toString(), false);
}

QString cMacroEditPage::saveEdited(cProfileMgr& profiles, const QString& profile, const cJsonValue& builtIn)
{
    const QString uid = std::as_const(m_macro)["uid"].toString();
    if (builtIn.isNull()) {
        profiles.editMacro(profile, m_macro);
        return uid;
    }
    const QString other = builtIn["uid"].toString();
    if (other != uid) {
        // The edit has turned this command into one that exists: its keys go over to that one.
        profiles.moveAssignments(profile, uid, other);
        profiles.deleteMacro(profile, m_macro);
    }
    return other;
}

QString cMacroEditPage::saveNew(cProfileMgr& profiles, const QString& profile, const cJsonValue& builtIn)
{
    if (!builtIn.isNull())
        return builtIn["uid"].toString();
    const QString uid = QUuid::createUuid().toString().toUpper();
    m_macro["uid"] = uid;
    m_macro["hidden"] = false;
    profiles.addMacro(profile, m_macro);
    return uid;
}

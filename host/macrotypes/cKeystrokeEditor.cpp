#include "cKeystrokeEditor.h"

#include "cKeystrokeType.h"
#include "FormSizes.h"
#include "KeyCaptureButton.h"
#include "KeyMenuButton.h"
#include "MacroTypeIds.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

const Qt::KeyboardModifier Modifiers[] = {
    Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier, Qt::MetaModifier};

} // namespace

cKeystrokeEditor::cKeystrokeEditor(const cJsonValue& macro)
    : cMacroForm(MacroTypeIds::Keystroke, QLatin1String("command_keystroke.htm"), {"keys", "scancode"})
{
    createFields();
    fill(macro);
}

void cKeystrokeEditor::createFields()
{
    m_shown = makeLineEdit(tr("Keys"), tr("No keys yet"));
    m_shown->setReadOnly(true);
    m_shown->setContextMenuPolicy(Qt::NoContextMenu);
    m_shown->setFocusPolicy(Qt::ClickFocus);
    m_capture = new KeyCaptureButton(tr("&Press Keys"), tr("Stop"));
    m_capture->setProperty("uiType", QStringLiteral("grayButton"));
    m_capture->setAccessibleDescription(tr("Takes the keys that you press next; Esc stops it"));
    m_others = new KeyMenuButton(tr("&Other Key"));
    m_others->setProperty("uiType", QStringLiteral("grayButton"));

    formLayout()->addWidget(makeLabel(tr("&Keys:"), m_capture));
    formLayout()->addWidget(m_shown);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_capture);
    buttons->addWidget(m_others);
    buttons->addStretch();
    formLayout()->addLayout(buttons);
    formLayout()->addSpacing(FormSizes::Gap);

    auto* const held = new QHBoxLayout;
    held->setSpacing(FormSizes::Gap);
    for (const Qt::KeyboardModifier modifier : Modifiers) {
        auto* const box = new QCheckBox(KeyNames::toText(KeyNames::keyOf(modifier)));
        box->setAccessibleName(tr("With %1").arg(box->text()));
        connect(box, SIGNAL(toggled(bool)), this, SLOT(onModifierToggled()));
        held->addWidget(box);
        m_modifiers.append(box);
    }
    held->addStretch();
    formLayout()->addWidget(makeLabel(tr("&With:"), m_modifiers.first()));
    formLayout()->addLayout(held);
    formLayout()->addSpacing(FormSizes::Gap);
    formLayout()->addWidget(
        makeHint(tr("Click Press Keys, then press the keys together. Esc stops without a "
                    "change; Esc itself and keys that your keyboard lacks are under Other "
                    "Key.")));
    formLayout()->addStretch();

    connect(m_capture, SIGNAL(started()), this, SLOT(onCaptureStarted()));
    connect(m_capture, SIGNAL(stopped()), this, SLOT(onCaptureStopped()));
    connect(m_capture, SIGNAL(keyPressed(Key, Qt::KeyboardModifiers, qint64)), this,
        SLOT(onKeyPressed(Key, Qt::KeyboardModifiers)));
    connect(m_capture, SIGNAL(keyReleased(Key, qint64)), this, SLOT(onKeyReleased(Key)));
    connect(m_others, SIGNAL(keyChosen(Key)), this, SLOT(onKeyChosen(Key)));
    setFocusProxy(m_capture);
}

QString cKeystrokeEditor::defaultMacroName()
{
    return KeyNames::toText(m_keys);
}

bool cKeystrokeEditor::setForm(const cJsonValue& data)
{
    const auto keys = cKeystrokeType::fromData(data);
    if (keys)
        setKeys(*keys);
    return keys.has_value();
}

cJsonValue cKeystrokeEditor::formData() const
{
    return cKeystrokeType::toData(m_keys);
}

void cKeystrokeEditor::clearForm()
{
    setKeys(KeyCombination());
}

cMacroForm::Objection cKeystrokeEditor::check()
{
    if (!m_keys.isNull())
        return {};
    return {tr("Click Press Keys and press the keys that this command sends."), m_capture};
}

void cKeystrokeEditor::stop()
{
    m_capture->stop();
}

void cKeystrokeEditor::onCaptureStarted()
{
    m_pressed = KeyCombination();
    m_held = 0;
    m_shown->setPlaceholderText(tr("Press the keys now"));
    m_shown->clear();
}

void cKeystrokeEditor::onCaptureStopped()
{
    m_shown->setPlaceholderText(tr("No keys yet"));
    showKeys(m_keys);
}

void cKeystrokeEditor::onKeyPressed(const Key& key, Qt::KeyboardModifiers modifiers)
{
    ++m_held;
    // A modifier counts as the key only as long as it is the last one.
    const bool isModifier = KeyNames::modifierOf(key.code) != Qt::NoModifier;
    if (isModifier && !m_pressed.isNull() && KeyNames::modifierOf(m_pressed.key.code) == Qt::NoModifier)
        return;
    m_pressed = {modifiers, key};
    showKeys(m_pressed);
}

void cKeystrokeEditor::onKeyReleased(const Key&)
{
    if (--m_held > 0)
        return;
    setKeys(m_pressed);
    m_capture->stop();
    formChanged();
}

void cKeystrokeEditor::onKeyChosen(const Key& key)
{
    setKeys({m_keys.modifiers & ~Qt::KeyboardModifiers(KeyNames::modifierOf(key.code)), key});
    formChanged();
}

void cKeystrokeEditor::onModifierToggled()
{
    KeyCombination keys = m_keys;
    for (int i = 0; i < m_modifiers.size(); ++i)
        keys.modifiers.setFlag(Modifiers[i], m_modifiers[i]->isChecked());
    keys.modifiers &= ~Qt::KeyboardModifiers(KeyNames::modifierOf(keys.key.code));
    setKeys(keys);
    formChanged();
}

void cKeystrokeEditor::showKeys(const KeyCombination& keys)
{
    m_shown->setText(KeyNames::toText(keys));
    for (int i = 0; i < m_modifiers.size(); ++i) {
        const QSignalBlocker blocker(m_modifiers[i]);
        m_modifiers[i]->setChecked(keys.modifiers & Modifiers[i]);
        // A modifier that is the key itself can't be held with it.
        m_modifiers[i]->setEnabled(KeyNames::modifierOf(keys.key.code) != Modifiers[i]);
    }
}

void cKeystrokeEditor::setKeys(const KeyCombination& keys)
{
    m_keys = keys;
    showKeys(keys);
}

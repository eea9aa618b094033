#include "cMultiKeyEditor.h"

#include "FormSizes.h"
#include "KeyCaptureButton.h"
#include "KeyMenuButton.h"
#include "KeyStepModel.h"
#include "MacroTypeIds.h"

#include <QAction>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// What the field for all delays begins with, in milliseconds.
constexpr int UsualDelay = 50;

/// Edits a delay.
class DelayDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(
        QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        auto* const box = new QSpinBox(parent);
        box->setRange(0, MacroLimits::Delay);
        box->setFrame(false);
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        box->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
        return box;
    }
};

} // namespace

cMultiKeyEditor::cMultiKeyEditor(const cJsonValue& macro)
    : cMacroForm(MacroTypeIds::MultiKey, QLatin1String("command_multikey.htm"), {"events"})
    , m_model(new KeyStepModel(this))
{
    createFields();
    updateButtons();
    connect(m_model, SIGNAL(stepsChanged()), this, SLOT(onStepsChanged()));
    fill(macro);
}

void cMultiKeyEditor::createFields()
{
    m_record = new KeyCaptureButton(tr("Re&cord"), tr("Stop"));
    m_record->setProperty("uiType", QStringLiteral("grayButton"));
    m_record->setAccessibleDescription(tr("Adds the keys that you press, with their times; Esc stops it"));
    m_insert = new KeyMenuButton(tr("&Insert Key"));
    m_insert->setProperty("uiType", QStringLiteral("grayButton"));
    createList();

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_record);
    buttons->addWidget(m_insert);
    buttons->addStretch();
    formLayout()->addLayout(buttons);
    formLayout()->addWidget(makeLabel(tr("&Keys:"), m_list));
    auto* const list = new QHBoxLayout;
    list->addWidget(m_list, 1);
    formLayout()->addLayout(list, 1);
    createButtons();
    auto* const changes = new QVBoxLayout;
    for (QPushButton* button : {m_up, m_down, m_delete})
        changes->addWidget(button);
    changes->addStretch();
    list->addLayout(changes);

    auto* const delays = new QHBoxLayout;
    delays->addWidget(makeLabel(tr("&Time of the selected, or of all:"), m_delay));
    delays->addWidget(m_delay);
    delays->addWidget(m_setDelays);
    delays->addStretch();
    formLayout()->addLayout(delays);
    formLayout()->addWidget(
        makeHint(tr("Click Record, press the keys in your own time, and end with Esc or Stop. "
                    "Esc itself is under Insert Key.")));

    connect(m_record, SIGNAL(started()), this, SLOT(onRecordStarted()));
    connect(m_record, SIGNAL(stopped()), this, SLOT(onRecordStopped()));
    connect(m_record, SIGNAL(keyPressed(Key, Qt::KeyboardModifiers, qint64)), this,
        SLOT(onKeyPressed(Key, Qt::KeyboardModifiers, qint64)));
    connect(m_record, SIGNAL(keyReleased(Key, qint64)), this, SLOT(onKeyReleased(Key, qint64)));
    connect(m_insert, SIGNAL(keyChosen(Key)), this, SLOT(onKeyChosen(Key)));
    setFocusProxy(m_record);
}

void cMultiKeyEditor::createList()
{
    m_list = new QTableView;
    m_list->setModel(m_model);
    m_list->setItemDelegateForColumn(KeyStepModel::DelayColumn, new DelayDelegate(m_list));
    m_list->setAccessibleName(tr("Keys"));
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::ContiguousSelection);
    m_list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
        | QAbstractItemView::SelectedClicked | QAbstractItemView::AnyKeyPressed);
    // Tab leaves the list as it leaves any field.
    m_list->setTabKeyNavigation(false);
    m_list->setShowGrid(false);
    m_list->setWordWrap(false);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->verticalHeader()->hide();
    // One height for all: rows are not measured, however many there are.
    m_list->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_list->verticalHeader()->setDefaultSectionSize(m_list->fontMetrics().height() + FormSizes::RowPadding);
    m_list->horizontalHeader()->setHighlightSections(false);
    m_list->horizontalHeader()->setSectionsClickable(false);
    m_list->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(m_list->selectionModel(), SIGNAL(selectionChanged(QItemSelection, QItemSelection)), this,
        SLOT(updateButtons()));
}

void cMultiKeyEditor::createButtons()
{
    m_up = makeButton(tr("&Up"), SLOT(onMoveUp()));
    m_down = makeButton(tr("&Down"), SLOT(onMoveDown()));
    m_delete = makeButton(tr("De&lete"), SLOT(onDelete()));
    auto* const deleteKey = new QAction(this);
    deleteKey->setShortcut(QKeySequence::Delete);
    deleteKey->setShortcutContext(Qt::WidgetShortcut);
    connect(deleteKey, SIGNAL(triggered()), this, SLOT(onDelete()));
    m_list->addAction(deleteKey);
    m_delay = new QSpinBox;
    m_delay->setRange(0, MacroLimits::Delay);
    m_delay->setValue(UsualDelay);
    m_delay->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_delay->setSuffix(tr(" ms"));
    m_setDelays = makeButton(tr("&Set"), SLOT(onSetDelays()));
    m_setDelays->setAccessibleDescription(tr("Gives this time to the selected keys, or to all"));
}

QPushButton* cMultiKeyEditor::makeButton(const QString& text, const char* slot)
{
    auto* const button = new QPushButton(text);
    button->setProperty("uiType", QStringLiteral("grayButton"));
    button->setAutoDefault(false);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

QString cMultiKeyEditor::defaultMacroName()
{
    QString name;
    for (const KeyStep& step : m_model->steps()) {
        if (!step.isPress)
            continue;
        if (!name.isEmpty())
            name += QLatin1Char(' ');
        name += KeyNames::toText(step.key.code);
        if (name.size() > MacroLimits::NameLength)
            break;
    }
    return shortened(name);
}

bool cMultiKeyEditor::setForm(const cJsonValue& data)
{
    const auto steps = cMultiKeyType::fromData(data);
    if (steps)
        m_model->setSteps(*steps);
    return steps.has_value();
}

cJsonValue cMultiKeyEditor::formData() const
{
    return cMultiKeyType::toData(m_model->steps());
}

void cMultiKeyEditor::clearForm()
{
    m_model->setSteps({});
    m_delay->setValue(UsualDelay);
}

bool cMultiKeyEditor::isFilled() const
{
    return !m_model->steps().empty();
}

cMacroForm::Objection cMultiKeyEditor::check()
{
    const std::vector<KeyStep>& steps = m_model->steps();
    if (steps.empty())
        return {tr("Record the keys of this command, or insert one."), m_record};
    if (int(steps.size()) > MacroLimits::Events) {
        return {tr("A command holds at most %L1 entries; this one has %L2.")
                    .arg(MacroLimits::Events)
                    .arg(int(steps.size())),
            m_list};
    }
    QVector<int> held;
    for (int row = 0; row < int(steps.size()); ++row) {
        const KeyStep& step = steps[std::size_t(row)];
        if (step.isPress) {
            if (!held.contains(step.key.code))
                held.append(step.key.code);
        } else if (!held.removeOne(step.key.code)) {
            select(row, row);
            return {tr("Row %1 releases %2, which no row before it presses.")
                        .arg(row + 1)
                        .arg(KeyNames::toText(step.key.code)),
                m_list};
        }
    }
    return {};
}

void cMultiKeyEditor::stop()
{
    m_record->stop();
}

void cMultiKeyEditor::onRecordStarted()
{
    m_lastTime = -1;
    m_recordedDown.clear();
    m_list->clearSelection();
    updateButtons();
}

void cMultiKeyEditor::onRecordStopped()
{
    updateButtons();
}

void cMultiKeyEditor::onKeyPressed(const Key& key, Qt::KeyboardModifiers, qint64 time)
{
    // Every key that is down takes another row when it goes up.
    if (int(m_model->steps().size()) + m_recordedDown.size() + 2 > MacroLimits::Events) {
        m_record->stop();
        say(tr("A command holds at most %L1 entries. The recording has stopped.").arg(MacroLimits::Events));
        return;
    }
    m_recordedDown.append(key);
    record(true, key, time);
}

void cMultiKeyEditor::onKeyReleased(const Key& key, qint64 time)
{
    if (m_recordedDown.removeOne(key))
        record(false, key, time);
}

void cMultiKeyEditor::record(bool isPress, const Key& key, qint64 time)
{
    const qint64 passed = m_lastTime < 0 ? 0 : time - m_lastTime;
    m_lastTime = time;
    const int delay = int(std::clamp<qint64>(passed, 0, MacroLimits::Delay));
    m_model->insert(m_model->rowCount(), {{isPress, key, delay}});
    m_list->scrollToBottom();
}

void cMultiKeyEditor::onKeyChosen(const Key& key)
{
    const std::vector<int> rows = selectedRows();
    const int row = rows.empty() ? m_model->rowCount() : rows.back() + 1;
    m_model->insert(row, {{true, key, row == 0 ? 0 : m_delay->value()}, {false, key, m_delay->value()}});
    select(row, row + 1);
}

void cMultiKeyEditor::onMoveUp()
{
    move(true);
}

void cMultiKeyEditor::onMoveDown()
{
    move(false);
}

void cMultiKeyEditor::move(bool isUp)
{
    const std::vector<int> rows = selectedRows();
    if (!rows.empty() && m_model->move(rows.front(), rows.back(), isUp)) {
        const int by = isUp ? -1 : 1;
        select(rows.front() + by, rows.back() + by);
    }
}

void cMultiKeyEditor::onDelete()
{
    const std::vector<int> rows = selectedRows();
    if (rows.empty())
        return;
    m_model->remove(rows);
    const int next = std::min(rows.front(), m_model->rowCount() - 1);
    if (next >= 0)
        select(next, next);
}

void cMultiKeyEditor::onSetDelays()
{
    std::vector<int> rows = selectedRows();
    if (rows.empty()) {
        for (int row = 0; row < m_model->rowCount(); ++row)
            rows.push_back(row);
    }
    m_model->setDelays(rows, m_delay->value());
}

void cMultiKeyEditor::onStepsChanged()
{
    updateButtons();
    formChanged();
}

void cMultiKeyEditor::updateButtons()
{
    const std::vector<int> rows = selectedRows();
    const bool isIdle = !m_record->isCapturing();
    m_up->setEnabled(isIdle && !rows.empty() && rows.front() > 0);
    m_down->setEnabled(isIdle && !rows.empty() && rows.back() + 1 < m_model->rowCount());
    m_delete->setEnabled(isIdle && !rows.empty());
    m_setDelays->setEnabled(isIdle && m_model->rowCount() > 0);
    m_insert->setEnabled(isIdle);
}

std::vector<int> cMultiKeyEditor::selectedRows() const
{
    std::vector<int> rows;
    const QItemSelection selection = m_list->selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void cMultiKeyEditor::select(int first, int last)
{
    const QItemSelection rows(m_model->index(first, 0), m_model->index(last, KeyStepModel::ColumnCount - 1));
    m_list->selectionModel()->setCurrentIndex(
        m_model->index(first, KeyStepModel::DelayColumn), QItemSelectionModel::NoUpdate);
    m_list->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    m_list->scrollTo(m_model->index(first, 0));
}

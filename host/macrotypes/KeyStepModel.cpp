#include "KeyStepModel.h"

#include "MacroTypeIds.h"

#include <algorithm>
#include <functional>

void KeyStepModel::setSteps(const std::vector<KeyStep>& steps)
{
    beginResetModel();
    m_steps = steps;
    endResetModel();
    emit stepsChanged();
}

void KeyStepModel::insert(int row, const std::vector<KeyStep>& steps)
{
    if (steps.empty())
        return;
    beginInsertRows({}, row, row + int(steps.size()) - 1);
    m_steps.insert(m_steps.begin() + row, steps.begin(), steps.end());
    endInsertRows();
    emit stepsChanged();
}

void KeyStepModel::remove(const std::vector<int>& rows)
{
    if (rows.empty())
        return;
    // From the end, so that the rows before keep their numbers; rows that follow one another go at once.
    std::vector<int> descending = rows;
    std::sort(descending.begin(), descending.end(), std::greater<>());
    for (std::size_t i = 0; i < descending.size();) {
        const int last = descending[i];
        int first = last;
        while (++i < descending.size() && descending[i] == first - 1)
            first = descending[i];
        beginRemoveRows({}, first, last);
        m_steps.erase(m_steps.begin() + first, m_steps.begin() + last + 1);
        endRemoveRows();
    }
    emit stepsChanged();
}

bool KeyStepModel::move(int first, int last, bool isUp)
{
    if (isUp ? first < 1 : last + 1 >= int(m_steps.size()))
        return false;
    beginMoveRows({}, first, last, {}, isUp ? first - 1 : last + 2);
    const auto begin = m_steps.begin();
    if (isUp)
        std::rotate(begin + first - 1, begin + first, begin + last + 1);
    else
        std::rotate(begin + first, begin + last + 1, begin + last + 2);
    endMoveRows();
    emit stepsChanged();
    return true;
}

void KeyStepModel::setDelays(const std::vector<int>& rows, int delay)
{
    if (rows.empty())
        return;
    for (const int row : rows)
        m_steps[std::size_t(row)].delay = std::clamp(delay, 0, MacroLimits::Delay);
    const auto ends = std::minmax_element(rows.begin(), rows.end());
    emit dataChanged(index(*ends.first, DelayColumn), index(*ends.second, DelayColumn));
    emit stepsChanged();
}

int KeyStepModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_steps.size());
}

int KeyStepModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant KeyStepModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_steps.size()))
        return {};
    const KeyStep& step = m_steps[std::size_t(index.row())];
    if (role == Qt::TextAlignmentRole && index.column() == DelayColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::AccessibleTextRole && index.column() == DelayColumn)
        return tr("After %1 milliseconds").arg(step.delay);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    switch (index.column()) {
    case ActionColumn:
        return step.isPress ? tr("Press") : tr("Release");
    case KeyColumn:
        return KeyNames::toText(step.key.code);
    case DelayColumn:
        return step.delay;
    default:
        return {};
    }
}

bool KeyStepModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    bool isNumber = false;
    const int delay = value.toInt(&isNumber);
    if (role != Qt::EditRole || !index.isValid() || index.column() != DelayColumn || !isNumber || delay < 0)
        return false;
    setDelays({index.row()}, delay);
    return true;
}

QVariant KeyStepModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return int((section == DelayColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case ActionColumn:
        return tr("Action");
    case KeyColumn:
        return tr("Key");
    case DelayColumn:
        return tr("After (ms)");
    default:
        return {};
    }
}

Qt::ItemFlags KeyStepModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == DelayColumn ? flags | Qt::ItemIsEditable : flags;
}

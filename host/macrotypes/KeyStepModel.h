#pragma once

#include "cMultiKeyType.h"

#include <QAbstractTableModel>

#include <vector>

/// The steps of a multi-key command as rows. The delay can be edited, in milliseconds.
class KeyStepModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { ActionColumn, KeyColumn, DelayColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    const std::vector<KeyStep>& steps() const { return m_steps; }
    void setSteps(const std::vector<KeyStep>& steps);
    /// Row `row` becomes the first of the new steps.
    void insert(int row, const std::vector<KeyStep>& steps);
    void remove(const std::vector<int>& rows);
    /// Moves rows that follow one another by one place; false if there is none.
    bool move(int first, int last, bool isUp);
    void setDelays(const std::vector<int>& rows, int delay);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    /// Some of the steps are not what they were.
    void stepsChanged();

private:
    std::vector<KeyStep> m_steps;
};

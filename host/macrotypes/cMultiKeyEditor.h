#pragma once

#include "cMacroForm.h"
#include "KeyNames.h"

#include <QVector>

#include <vector>

class KeyCaptureButton;
class KeyMenuButton;
class KeyStepModel;
class QPushButton;
class QSpinBox;
class QTableView;

/// The page of multi-key commands: a recorder, and the list of what it recorded, which can be changed.
class cMultiKeyEditor : public cMacroForm
{
    Q_OBJECT

public:
    explicit cMultiKeyEditor(const cJsonValue& macro);

    QString defaultMacroName() override;

protected:
    bool setForm(const cJsonValue& data) override;
    cJsonValue formData() const override;
    void clearForm() override;
    bool isFilled() const override;
    Objection check() override;
    void stop() override;

private Q_SLOTS:
    void onRecordStarted();
    void onRecordStopped();
    void onKeyPressed(const Key& key, Qt::KeyboardModifiers modifiers, qint64 time);
    void onKeyReleased(const Key& key, qint64 time);
    void onKeyChosen(const Key& key);
    void onMoveUp();
    void onMoveDown();
    void onDelete();
    void onSetDelays();
    void onStepsChanged();
    void updateButtons();

private:
    void createFields();
    void createList();
    void createButtons();
    QPushButton* makeButton(const QString& text, const char* slot);
    void record(bool isPress, const Key& key, qint64 time);
    std::vector<int> selectedRows() const;
    void select(int first, int last);
    void move(bool isUp);

    KeyStepModel* m_model = nullptr;
    QTableView* m_list = nullptr;
    KeyCaptureButton* m_record = nullptr;
    KeyMenuButton* m_insert = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_delete = nullptr;
    QSpinBox* m_delay = nullptr;
    QPushButton* m_setDelays = nullptr;
    /// The keys whose press has been recorded, but not their release.
    QVector<Key> m_recordedDown;
    /// Of the last recorded event; negative before the first.
    qint64 m_lastTime = -1;
};

#pragma once

#include <cJsonValue.h>
#include <IMacroEditor.h>
#include <IMacroType.h>
#include <TestCase.h>

#include <QByteArray>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QString>

#include <memory>

/// Opens pages as the command editor does: in a dialog with a name field above and a default button below.
class EditorTestCase : public TestCase
{
    Q_OBJECT

public Q_SLOTS:
    void onNameChanged(const QString& name)
    {
        ++m_changes;
        m_name->setText(name);
    }

protected:
    static cMacroTypePtr typeOf(const QString& uid);
    static cJsonValue json(const QByteArray& text);
    static QByteArray text(const cJsonValue& value);
    static cJsonValue record(
        const QString& uid, const cJsonValue& data, const QString& name = QStringLiteral("My Command"));

    IMacroEditor* open(const QString& uid, const cJsonValue& macro = cJsonValue());
    template<typename T>
    T* field(const char* accessibleName)
    {
        for (T* each : m_page->findChildren<T*>()) {
            if (each->accessibleName() == accessibleName)
                return each;
        }
        return nullptr;
    }
    QPushButton* button(const QString& shown);
    QString message();
    void sendKey(QEvent::Type type, int key, ulong time, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void tap(int key, ulong time);
    /// Fills the form of a new command as a person would.
    void fillIn(const QString& uid);
    /// The multi-key page's list, as in "+A0 -A75".
    QString steps();

    std::unique_ptr<QDialog> m_dialog;
    QLineEdit* m_name = nullptr;
    IMacroEditor* m_page = nullptr;
    int m_changes = 0;
};

#pragma once

#include "CommandEditorHost.h"
#include "FakeMacroType.h"

#include <cMacroEditPage.h>
#include <TestCase.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QStringList>

#include <memory>

/// The names that the tests of the command editor share.
namespace TestIds {
inline const QString Profile = QStringLiteral("{PROFILE}");
inline const QString Keys = QStringLiteral("urn:keys");
inline const QString Text = QStringLiteral("urn:text");
inline const QString Hidden = QStringLiteral("urn:hidden");
} // namespace TestIds

/// Base of the tests of the command editor: a host with the types "Keys" and "Text", the built-in "Media"
/// with fixed names, and between them the private "Hidden"; a view that shows TestIds::Profile.
class CommandEditorTestCase : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase();

protected:
    static cJsonValue json(const QByteArray& text);
    /// A record as in {"uid": "{1}", "name": "Shoot", "display_name": "Shoot", "namespace": type, "data": 5}.
    static cJsonValue record(const QString& typeId, const QString& name = QStringLiteral("Shoot"));
    /// The calls and notes since the last take, briefly, without what clients require. New ids read {NEW}.
    QStringList takeLog();
    /// The record of the last call of the operation.
    cJsonValue sentRecord(const QString& operation) const;

    CommandEditorHost& host() { return *m_host; }
    FakeMacroType& keys() { return *m_keys; }
    FakeMacroType& text() { return *m_text; }
    FakeMacroType& media() { return *m_media; }
    FakeMacroType& hidden() { return *m_hidden; }

    cMacroEditPage& openPage(const cJsonValue& macro = cJsonValue(), bool withAddButton = true);
    cMacroEditPage& page() { return *m_page; }
    void closePage() { m_page.reset(); }
    /// A widget of the page by its `uiType`, and by its text where there are several.
    template<typename T>
    T* part(const char* uiType, const QString& shown = QString()) const
    {
        for (T* each : m_page->findChildren<T*>()) {
            if (each->property("uiType") == QLatin1String(uiType)
                && (shown.isEmpty() || each->property("text") == shown))
                return each;
        }
        return nullptr;
    }
    QLineEdit& name() { return *part<QLineEdit>("meLineEdit"); }
    QPushButton& okButton() { return *part<QPushButton>("acceptbutton"); }
    QPushButton* grayButton(const char* shown) { return part<QPushButton>("grayButton", shown); }
    /// The name of the type in front.
    QString title() { return part<QLabel>("DialogTitle")->text(); }
    QStackedWidget& stack() { return *m_page->findChild<QStackedWidget*>(); }
    QGroupBox& group() { return *m_page->findChild<QGroupBox*>(); }
    QComboBox& repeat() { return *m_page->findChild<QComboBox*>(); }
    QLineEdit& delay();
    /// Hears the page's three signals and notes them in the log.
    void listen();
    /// "OK" and "Add" if they can be pressed.
    QString savers();

private Q_SLOTS:
    void onAccepted(int result) { note(QStringLiteral("accepted %1").arg(result)); }
    void onRejected(int result) { note(QStringLiteral("rejected %1").arg(result)); }
    void onMacroEditorClosed(const QString& macroID) { note(QStringLiteral("macroEditorClosed ") + macroID); }

private:
    void note(const QString& text) { m_host->note(QStringLiteral("signal ") + text); }

    std::unique_ptr<CommandEditorHost> m_host;
    QSharedPointer<FakeMacroType> m_keys;
    QSharedPointer<FakeMacroType> m_text;
    QSharedPointer<FakeMacroType> m_media;
    QSharedPointer<FakeMacroType> m_hidden;
    std::unique_ptr<cMacroEditPage> m_page;
};

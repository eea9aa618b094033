#include "CommandSupport.h"

#include <cMacroBindingView.h>
#include <cMacroItem.h>
#include <ShownInView.h>

#include <QImage>
#include <QtTest>

#include <algorithm>

using namespace CommandSupport;

void CommandSupport::show(const QString& profileID, const QString& category, const QStringList& controls)
{
    cMacroBindingView& view = *cMacroBindingView::instance();
    setShownInView(view, profileID, category, MKey::M1);
    setControlsOfView(view, controls);
}

FakeType::FakeType(const QString& uid, const QString& iconPath, bool isPrivate)
    : PlainMacroType(cJsonValue(), isPrivate)
{
    m_info["uid"] = uid;
    m_info["iconpath"] = iconPath;
}

cJsonValue CommandSupport::macro(const QString& uid, const QString& name, const QString& type, bool hidden)
{
    cJsonValue macro;
    macro["uid"] = uid;
    macro["namespace"] = type;
    macro["hidden"] = hidden;
    macro["display_name"] = name;
    // What the list must not show.
    macro["name"] = name + " (internal)";
    return macro;
}

cJsonValue CommandSupport::macros(const QStringList& names)
{
    cJsonValue records(cJsonValue::arrayValue);
    for (int i = 0; i < names.size(); ++i)
        records.append(macro(QStringLiteral("{%1}").arg(i + 1), names[i]));
    return records;
}

Panel::Panel(bool isShown)
{
    show(Profile);
    types = {cMacroTypePtr(new FakeType(Keys, QString())), cMacroTypePtr(new FakeType(Text, QString())),
        cMacroTypePtr(new FakeType(Private, QString(), true))};
    host.answer("window", &window);
    host.answer("getAllMacroTypes", [this](const RecordedCall&) { return QVariant::fromValue(types); });
    host.answer("getMacroTypeByID", [this](const RecordedCall& call) {
        const QString id = call.values[0].toString();
        const auto found = std::find_if(types.cbegin(), types.cend(),
            [&](const cMacroTypePtr& type) { return type->info()["uid"].toString() == id; });
        return QVariant::fromValue(found == types.cend() ? cMacroTypePtr() : *found);
    });
    window.resize(300, 400);
    list = std::make_unique<cMacroList>(&window);
    signalLog = std::make_unique<SignalLog>(*list, host);
    window.setVisible(isShown);
    host.clear();
}

Panel::~Panel() = default;

QStringList Panel::takeLog()
{
    QStringList lines = host.takeLog();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                    [](const QString& line) {
                        return line.startsWith(QLatin1String("require "))
                            || line.startsWith(QLatin1String("publish "));
                    }),
        lines.end());
    return lines;
}

void Panel::startFill(const cJsonValue& records)
{
    host.answer("macros", records);
    host.publishProfileSelectionChanged("{ignored}");
}

void Panel::fill(const cJsonValue& records)
{
    startFill(records);
    QSignalSpy populated(list.get(), SIGNAL(populated()));
    if (records.size() > 0 && !populated.wait(20000))
        QTest::qFail("the fill does not end", __FILE__, __LINE__);
    host.clear();
}

void Panel::search(const QString& text)
{
    QVERIFY(QMetaObject::invokeMethod(list.get(), "onSearch", Q_ARG(QString, text)));
}

cMacroItem* Panel::row(int row) const
{
    return qobject_cast<cMacroItem*>(list->itemWidget(list->item(row)));
}

cMacroItem* Panel::rowOf(const QString& uid) const
{
    for (int i = 0; i < list->count(); ++i) {
        if (row(i)->macroId() == uid)
            return row(i);
    }
    return nullptr;
}

QStringList Panel::shownNames() const
{
    QStringList names;
    for (int i = 0; i < list->count(); ++i) {
        if (!list->item(i)->isHidden())
            names.append(list->item(i)->text());
    }
    return names;
}

void Panel::select(const QList<int>& rows)
{
    QItemSelection selection;
    for (const int row : rows) {
        const QModelIndex index = list->model()->index(row, 0);
        selection.select(index, index);
    }
    list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

bool Panel::showsNoResults() const
{
    QCoreApplication::processEvents();
    // On black: the words are the only thing that is white, and rows have no pictures here.
    QPalette black;
    black.setColor(QPalette::Base, Qt::black);
    black.setColor(QPalette::WindowText, Qt::black);
    black.setColor(QPalette::Text, Qt::black);
    list->setPalette(black);
    const QImage image = list->viewport()->grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == QColor(Qt::white))
                return true;
        }
    }
    return false;
}

QString CommandSupport::macrosCall(const QString& profileID)
{
    return QStringLiteral("Profiler.ProfileMgr macros(QString \"%1\") -> cJsonValue").arg(profileID);
}

QString CommandSupport::typeCall(const QString& type)
{
    return QStringLiteral("Profiler.MacroTypeMgr getMacroTypeByID(QString \"%1\") -> cMacroTypePtr")
        .arg(type);
}

QString CommandSupport::allTypesCall()
{
    return QStringLiteral("Profiler.MacroTypeMgr getAllMacroTypes() -> IMacroTypePtrList");
}

QString CommandSupport::assignedCall(const QString& uid)
{
    return QStringLiteral(
        "Profiler.ProfileMgr isMacroAssigned(const QString \"%1\", const QString \"%2\", const "
        "QStringList [\"G1\", \"G2\"], const QString \"%3\") -> bool")
        .arg(Profile, Category, uid);
}

QStringList CommandSupport::rowCalls(const QString& uid, const QString& type)
{
    return {typeCall(type), assignedCall(uid), allTypesCall()};
}

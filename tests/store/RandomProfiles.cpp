#include "RandomProfiles.h"

#include <QUuid>

Profile RandomProfiles::profile()
{
    Profile profile;
    profile.properties["uid"] = uid();
    profile.properties["name"] = QLatin1Char('n') + text();
    if (coin())
        profile.properties["description"] = QLatin1Char('d') + text();
    if (coin())
        profile.properties["script"] =
            QLatin1String("function f()\n\tprint(1 < 2 and \"x\")\nend\n") + text();
    if (coin())
        profile.properties["lock"] = true;
    if (coin())
        profile.properties["future"] = json();
    for (int i = number(3); i > 0; --i) {
        cJsonValue signature;
        for (const char* key : {"key", "value", "executable", "name"})
            signature[key] = text();
        profile.properties["signatures"].append(signature);
    }
    for (int i = number(8); i > 0; --i)
        profile.macros.push_back(macro());
    for (const cJsonValue& each : profile.macros) {
        const QString category =
            coin() ? QStringLiteral("Veltrano.Gaming.Mouse") : QStringLiteral("Other & <more>");
        const ControlKey control {category, MKey::MKey_t(number(3)), QStringLiteral("G%1").arg(number(20))};
        profile.assignments[control] = each["uid"].toString();
        profile.categories.insert(category);
        if (coin())
            profile.backup[control] = coin() ? QString() : uid();
    }
    if (coin())
        profile.categories.insert(QStringLiteral("Empty"));
    if (coin())
        profile.icon = QByteArray("\x89PNG\r\n\x1a\n\0\xff", 10);
    if (coin()) {
        cPointerProperties& pointer = profile.pointers[QStringLiteral("Model & 1")];
        pointer.speed = number(20);
        pointer.acceleration = coin();
        pointer.reportRate = 1000;
        pointer.dpi.levels = {{400, 400}, {800, 1600}};
        pointer.dpi.defaultLevel = 1;
    }
    if (coin())
        profile.extensions.elements.append(
            QStringLiteral("<x:later a=\"1&amp;2\"> mixed <b/>text </x:later>"));
    if (coin())
        profile.extensions.attributes[QStringLiteral("x:flag")] = text();
    return profile;
}

cJsonValue RandomProfiles::macro()
{
    cJsonValue macro;
    macro["uid"] = uid();
    macro["name"] = text();
    macro["display_name"] = text();
    macro["namespace"] = QStringLiteral("urn:type:%1").arg(number(3));
    macro["hidden"] = coin();
    if (coin())
        macro["data"]["value"] = json();
    if (coin()) {
        macro["repeat"]["mode"] = coin() ? "toggle" : "whilepressed";
        macro["repeat"]["delay"] = number(10000);
    }
    if (coin())
        macro["extension_elements"].append(QStringLiteral("<later>1</later>"));
    if (coin())
        macro["extension_attributes"]["later"] = text();
    return macro;
}

cJsonValue RandomProfiles::json(int depth)
{
    cJsonValue value;
    switch (number(depth < 3 ? 7 : 5)) {
    case 0:
        return number(1000) - 500;
    case 1:
        return number(1000) / 7.0;
    case 2:
        return coin();
    case 3:
        return text();
    case 4:
        return cJsonValue();
    case 5:
        value = cJsonValue(cJsonValue::arrayValue);
        for (int i = number(4); i > 0; --i)
            value.append(json(depth + 1));
        return value;
    default:
        value = cJsonValue(cJsonValue::objectValue);
        for (int i = number(4); i > 0; --i)
            value[text()] = json(depth + 1);
        return value;
    }
}

QString RandomProfiles::text()
{
    static const QStringList pieces {QStringLiteral("Reload"), QStringLiteral(" "), QStringLiteral("<&\"'>"),
        QStringLiteral("ä€"), QStringLiteral("]]>"), QString::fromUtf8("\xF0\x9F\x8E\xAE"),
        QStringLiteral("%1"), QStringLiteral("\t"), QStringLiteral("אב")};
    QString text;
    for (int i = number(5); i > 0; --i)
        text += pieces[number(pieces.size())];
    return text;
}

QString RandomProfiles::uid()
{
    QUuid id(m_random.generate(), ushort(number(65536)), ushort(number(65536)), uchar(number(256)),
        uchar(number(256)), 3, 4, 5, 6, 7, 8);
    return coin() ? id.toString() : id.toString().toUpper();
}

#include "PlainText.h"

#include "SceneConstants.h"

#include <QFontMetrics>
#include <QString>
#include <QTextDocument>

QString PlainText::toolTip(const QString& name)
{
    if (name.size() <= SceneConstants::LongTipLength && !Qt::mightBeRichText(name))
        return name;
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(name.toHtmlEscaped());
}

QString PlainText::menuText(const QString& name, const QFont& font)
{
    QString text = name;
    text.replace(QLatin1Char('\t'), QLatin1Char(' '));
    text = QFontMetrics(font).elidedText(text, Qt::ElideRight, SceneConstants::MenuTextWidth);
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

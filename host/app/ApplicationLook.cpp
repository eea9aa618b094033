#include "ApplicationLook.h"

#include <HostPalette.h>

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace {

/// The font of all widgets; the plug-ins' scene texts use the same family.
QFont font()
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

QPalette palette()
{
    const QColor text(HostPalette::Text);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::AlternateBase, QColor(HostPalette::Panel));
    palette.setColor(QPalette::Button, QColor(HostPalette::Panel));
    palette.setColor(QPalette::ToolTipBase, QColor(HostPalette::Panel));
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::PlaceholderText, QColor(HostPalette::QuietText));
    palette.setColor(QPalette::Highlight, QColor(HostPalette::Teal));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(HostPalette::LightTeal));
    palette.setColor(QPalette::LinkVisited, QColor(HostPalette::LightTeal));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(HostPalette::DisabledText));
    return palette;
}

} // namespace

void ApplicationLook::apply()
{
    // The style sheet builds on the one style that looks the same everywhere.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(font());
    QApplication::setPalette(palette());
}

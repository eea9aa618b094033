#pragma once

class QFont;
class QString;

/// Names that people give, for widgets that would read more into them than letters.
namespace PlainText {

/// For a tool tip, which takes some texts for markup. A long name is broken into lines.
QString toolTip(const QString& name);

/// For the entry of a menu, which takes "&" for the mark of a letter and a tabulator for the start of a
/// shortcut. A long name is shortened to what fits beside other windows.
QString menuText(const QString& name, const QFont& font);

} // namespace PlainText

#pragma once

#include "VHFSExport.h"

#include <QPixmap>
#include <QString>

class QDomDocument;

/// Free functions for the host and its plug-ins.
namespace HVS {

/// Largest file that FileReadDom() reads, in bytes.
constexpr qint64 MaxDomFileSize = qint64(64) * 1024 * 1024;
/// Deepest nesting of elements that FileReadDom() reads.
constexpr int MaxDomDepth = 256;
/// Most elements, attributes, texts and ends of elements that FileReadDom() reads; each takes some 200 bytes.
constexpr int MaxDomNodes = 4'000'000;

/// Reads an XML file. `namespaceProcessing` is handed to QDomDocument::setContent. On a file that is missing,
/// empty, too large, too deep or malformed it returns false, writes the reason, with line and column, as one
/// warning and leaves the document as it was. Nothing outside of the file is ever read: a file is refused
/// that names a document type or an entity elsewhere, and so is one whose entities expand beyond all measure.
VHFS_EXPORT bool FileReadDom(const QString& path, QDomDocument& document, bool namespaceProcessing);

/// Language of the user's locale, ISO 639-1 in small letters ("en"); "en" for the C locale.
VHFS_EXPORT QString currentLocaleLanguage();

/// Country of the user's locale, ISO 3166-1 alpha-2 in capitals ("US"); "US" where the locale names none.
VHFS_EXPORT QString currentLocaleCountry();

/// The icon of the program at `path`, in the largest size up to 256 pixels: the picture in a Windows
/// executable (.exe) or icon file (.ico), else the icon of the desktop entry that starts the program, else
/// the icon theme's icon of the program's name. A null pixmap if there is none.
VHFS_EXPORT QPixmap loadApplicationIcon(const QString& path);

} // namespace HVS

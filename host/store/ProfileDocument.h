#pragma once

#include "MacroTypeLookup.h"
#include "Profile.h"

#include <QByteArray>
#include <QString>

#include <vector>

class QDomElement;

/// Profiles as an XML document: the form in which they are stored, exported and imported.
///
///     <profiles version="1">
///         <profile uid="{...}" name="..." deviceid="..." migration="..." uselcd="true" lock="true">
///             <description/> <target/> <script/> <icon>base64 of a PNG</icon>
///             <signature key="" value="" executable="" name=""/> ...
///             <macros>
///                 <macro uid="" name="" display_name="" namespace="" hidden="true">
///                     <repeat mode="" delay=""/>
///                     <data>the element of the command's type, or JSON with format="json"</data>
///                 </macro> ...
///             </macros>
///             <assignments category="">
///                 <assignment macrouid="" contextid="" shiftstate=""/> ...
///             </assignments> ...
///             <backup category=""> <assignment .../> ... </backup> ...
///             <pointer model="" speed="" acceleration="" reportrate="" defaultlevel="" shiftlevel="">
///                 <dpi x="" y=""/> ...
///             </pointer> ...
///             <property name="">JSON of a key that has no place of its own</property> ...
///         </profile> ...
///     </profiles>
///
/// Attributes and elements are left out where they would say nothing. A lone <profile> is read as well.
/// Elements and attributes of other names are kept and written back, behind the known ones, wherever they
/// stand. So are assignments to M states that are not known, and <data> of another form. Equal profiles make
/// equal bytes.
///
/// A text of a record that XML can't hold, because of a control character, stands in a <property>, and so
/// does data that its type's element can't say, as JSON.
namespace ProfileDocument {

/// The version that is written. Documents of a newer one are not read.
constexpr int Version = 1;
/// Deepest nesting of elements that is read.
constexpr int MaxDepth = 200;
/// Largest document that is read, in bytes.
constexpr qint64 MaxSize = qint64(32) * 1024 * 1024;

struct ReadResult
{
    std::vector<Profile> profiles;
    /// Why the document could not be read, for people; empty if it could. Nothing is read in part.
    QString error;
    /// True if the reason is that a newer version wrote it.
    bool isNewer = false;
};

ReadResult read(const QByteArray& document, const MacroTypeLookup& types);

/// Reads the <profile> element of another document, such as the game database. An element without a uid gives
/// a profile without one.
ReadResult readElement(const QDomElement& profile, const MacroTypeLookup& types);

QByteArray write(const std::vector<Profile>& profiles, const MacroTypeLookup& types);

} // namespace ProfileDocument

#pragma once

/// The names of elements, attributes and record keys that reading and writing share.
namespace DocumentNames {

inline constexpr char Root[] = "profiles";
inline constexpr char RootVersion[] = "version";
inline constexpr const char* RootKeys[] = {RootVersion};
inline constexpr char ProfileElement[] = "profile";

/// Keys of the profile record that are attributes of its element, texts and booleans.
inline constexpr const char* ProfileTexts[] = {"uid", "name", "deviceid", "migration"};
inline constexpr const char* ProfileFlags[] = {"uselcd", "lock"};
/// Keys of the profile record that are elements with a text.
inline constexpr const char* ProfileElements[] = {"description", "target", "script"};

inline constexpr char Icon[] = "icon";
/// Key of the profile record for its signatures, which are elements below the profile.
inline constexpr char Signatures[] = "signatures";
inline constexpr char Signature[] = "signature";
inline constexpr const char* SignatureKeys[] = {"key", "value", "executable", "name"};

inline constexpr char Macros[] = "macros";
inline constexpr char Macro[] = "macro";
inline constexpr const char* MacroTexts[] = {"uid", "name", "display_name", "namespace"};
inline constexpr char Hidden[] = "hidden";
inline constexpr const char* MacroAttributes[] = {"uid", "name", "display_name", "namespace", Hidden};
inline constexpr char Repeat[] = "repeat";
inline constexpr char RepeatMode[] = "mode";
inline constexpr char RepeatDelay[] = "delay";
inline constexpr const char* RepeatKeys[] = {RepeatMode, RepeatDelay};
inline constexpr char Data[] = "data";
inline constexpr char DataFormat[] = "format";
inline constexpr char DataFormatJson[] = "json";
inline constexpr const char* DataKeys[] = {DataFormat};
/// Key in a command's `data` that holds the elements of a type that is not known here, as text.
inline constexpr char RawData[] = "raw_xml";

/// Of an element whose attributes have no meaning here.
inline constexpr const char* NoKeys[] = {""};

inline constexpr char Assignments[] = "assignments";
inline constexpr char Backup[] = "backup";
inline constexpr char Category[] = "category";
inline constexpr const char* CategoryKeys[] = {Category};
inline constexpr char Assignment[] = "assignment";
inline constexpr char MacroUid[] = "macrouid";
inline constexpr char ContextId[] = "contextid";
inline constexpr char ShiftState[] = "shiftstate";
inline constexpr const char* AssignmentKeys[] = {MacroUid, ContextId, ShiftState};

inline constexpr char Pointer[] = "pointer";
inline constexpr char Model[] = "model";
inline constexpr char Speed[] = "speed";
inline constexpr char Acceleration[] = "acceleration";
inline constexpr char ReportRate[] = "reportrate";
inline constexpr char DefaultLevel[] = "defaultlevel";
inline constexpr char ShiftLevel[] = "shiftlevel";
inline constexpr const char* PointerKeys[] = {
    Model, Speed, Acceleration, ReportRate, DefaultLevel, ShiftLevel};
inline constexpr char Dpi[] = "dpi";
inline constexpr char DpiX[] = "x";
inline constexpr char DpiY[] = "y";
inline constexpr const char* DpiKeys[] = {DpiX, DpiY};

/// A key of a record that has no place of its own.
inline constexpr char Property[] = "property";
inline constexpr char PropertyName[] = "name";
inline constexpr const char* PropertyKeys[] = {PropertyName};

/// Keys of records that hold what this version does not know.
inline constexpr char ExtensionElements[] = "extension_elements";
inline constexpr char ExtensionAttributes[] = "extension_attributes";
/// Key of a record that holds the two above for those of its elements that are no records themselves, by the
/// element's name and, where there are several, by what tells them apart.
inline constexpr char ExtensionParts[] = "extension_parts";

inline constexpr char True[] = "true";

} // namespace DocumentNames

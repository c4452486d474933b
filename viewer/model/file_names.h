#ifndef QVL_VIEWER_MODEL_FILE_NAMES_H_
#define QVL_VIEWER_MODEL_FILE_NAMES_H_

#include <string>
#include <string_view>

namespace qvl {

// Paths are UTF-8 on Windows and bytes elsewhere.

/// A path without its folders, whichever separator the system uses.
std::string_view FileNameOf(std::string_view path);

/// The path of a file to be written: with `extension`, a dot before it, behind a name that has
/// none. Not every system's dialog puts it there.
std::string PathWithExtension(const std::string& path, std::string_view extension);

/// The path of a file to be read: the same, but a file that is there under the name as typed is
/// the one that is meant.
std::string PathToRead(const std::string& path, std::string_view extension);

/// The whole path of a file, from the folder that is current; the path itself where the system does
/// not tell.
std::string AbsolutePath(const std::string& path);

/// Whether two whole paths name the same file by their letters; Windows ignores case.
bool IsSamePath(std::string_view a, std::string_view b);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_FILE_NAMES_H_

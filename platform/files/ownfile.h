#pragma once

class QString;

namespace files {

/// Returns the path of a file of the program's own. It lies beside the program where the program was built (`beside`),
/// and in a folder of libraries or helpers where a package installed it (`installed`). Both names are relative to the
/// folder of the program. The file may be missing in both; then the path beside the program is returned.
[[nodiscard]] QString OwnFile(const QString& beside, const QString& installed);

}  // namespace files

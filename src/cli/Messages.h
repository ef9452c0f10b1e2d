#pragma once

#include <iosfwd>
#include <string>

namespace kartova {
class RuntimeError;
class FileWriteError;
}  // namespace kartova

namespace kartova::cli {

// Every message of the tool goes to standard error as one line that starts with the program's
// name, so that it stands out in the output of a script.
inline constexpr const char* kProgramName = "kartova-cli";

// "kartova-cli: MESSAGE"
void PrintError(std::ostream& err, const std::string& message);
// "kartova-cli: warning: MESSAGE"
void PrintWarning(std::ostream& err, const std::string& message);

// The editor's German message, and in English what was being done when the context is known:
// "Laufzeitfehler '6': Überlauf (while reading the location names from demo.gbc, table at
// 0x092384)".
std::string RuntimeErrorText(const RuntimeError& error);

// "could not write out/1-1.png: Permission denied"; verb is "read" or "write".
std::string FileErrorText(const std::string& verb, const FileWriteError& error);

// Why the file at path (UTF-8) cannot be read, in the system's words: "No such file or
// directory", "Is a directory", "Permission denied", ...; empty when it can be read.
std::string ReadFailureReason(const std::string& path);

// The warning for a map load that read past the end of the ROM file.
std::string ReadPastEndWarning(const std::string& rom, int bank, int map);

}  // namespace kartova::cli

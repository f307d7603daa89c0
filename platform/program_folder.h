// Where the running program finds what it ships with. Installed, the
// programs lie in PREFIX/bin and their files in PREFIX/share/epwingdict
// (the language files, and the demo books in epwing/plus and epwing/wadai);
// the build lays itself out alike (build/bin, build/share/epwingdict).
#ifndef PLATFORM_PROGRAM_FOLDER_H_
#define PLATFORM_PROGRAM_FOLDER_H_

#include <string>

// The program's data folder, "<its own folder>/../share/epwingdict/", with a
// trailing "/"; empty when the program's path can't be told.
std::string ProgramDataFolder();

#endif  // PLATFORM_PROGRAM_FOLDER_H_

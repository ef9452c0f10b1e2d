#include "app/IniFile.h"

#include "app/SettingsStore.h"

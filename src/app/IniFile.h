#pragma once
// Private-profile INI file access; implemented with the settings store.

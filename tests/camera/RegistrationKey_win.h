#pragma once

#include <windows.h>

// What the tests have in the place of HKEY_CLASSES_ROOT, below HKEY_CURRENT_USER.
#define PEVRIX_CLASSES L"Software\\Pevrix registration test"

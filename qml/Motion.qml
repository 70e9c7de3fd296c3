pragma Singleton

import QtQml

// Whether things move. The main window binds it.
QtObject {
    property bool still: false // for pictures, and for people who ask the system for less motion
}

import QtQuick

// The colours of both themes. Those of eight hexadecimal digits are alpha, red, green, blue.
QtObject {
    property bool dark: true

    // Surfaces
    readonly property color bg: dark ? "#0b0e15" : "#ffffff"
    readonly property color surface: dark ? "#121722" : "#ffffff"
    readonly property color raised: dark ? "#19202c" : "#f4f7fb"
    readonly property color raisedHover: dark ? "#212a39" : "#e9eef6"
    readonly property color inputBg: dark ? "#0d1526" : "#ffffff"
    readonly property color accentSoft: dark ? "#12262a" : "#eafcfa"
    readonly property color hair: dark ? "#242c3a" : "#e0e6ee"
    readonly property color track: dark ? "#0e1420" : "#e9eef5"

    // Text
    readonly property color textc: dark ? "#eef2f8" : "#131a25"
    readonly property color muted: dark ? "#8a95a7" : "#5c6675"
    readonly property color faint: dark ? "#5a6576" : "#95a0b0"

    // Accent
    readonly property color accent: dark ? "#22d0c1" : "#0bab9d"
    readonly property color accentInk: dark ? "#04302c" : "#ffffff"

    // The same in both themes
    readonly property color red: "#ef5b52"
    readonly property color amber: "#e0a12e"
    readonly property color onVideoText: "#ffffff"
    readonly property color onVideoMuted: "#c9d0da"
    readonly property color chipScrim: "#99000000" // status chips over video
    readonly property color paper: "#ffffff"       // behind the QR code, switch knobs
    readonly property color shadow: "#66000000"
}

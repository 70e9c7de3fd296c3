import QtQuick

// The colours of both themes, and of strong contrast in either. Those of eight hexadecimal digits are
// alpha, red, green, blue.
QtObject {
    property bool dark: true
    property bool contrast: false // the system asks for text and edges that stand out

    // Strong contrast has four colours only: the system's own where it names them.
    readonly property bool named: SystemPreferences.contrastText.valid
    readonly property color back: named ? SystemPreferences.contrastWindow
                                        : dark ? "#000000" : "#ffffff"
    readonly property color ink: named ? SystemPreferences.contrastText
                                       : dark ? "#ffffff" : "#000000"
    readonly property color mark: named ? SystemPreferences.contrastHighlight
                                        : dark ? "#5cf2e4" : "#00524a"
    readonly property color markInk: named ? SystemPreferences.contrastHighlightedText
                                           : dark ? "#000000" : "#ffffff"

    // Surfaces
    readonly property color bg: contrast ? back : dark ? "#0b0e15" : "#ffffff"
    readonly property color surface: contrast ? back : dark ? "#121722" : "#ffffff"
    readonly property color raised: contrast ? back : dark ? "#19202c" : "#f4f7fb"
    readonly property color raisedHover: contrast ? Qt.tint(back, Qt.alpha(ink, 0.2))
                                                  : dark ? "#212a39" : "#e9eef6"
    readonly property color inputBg: contrast ? back : dark ? "#0d1526" : "#ffffff"
    readonly property color accentSoft: contrast ? back : dark ? "#12262a" : "#eafcfa"
    readonly property color hair: contrast ? ink : dark ? "#242c3a" : "#e0e6ee"
    readonly property color track: contrast ? back : dark ? "#0e1420" : "#e9eef5"
    readonly property color segment: contrast || dark ? raisedHover : paper // the one that is chosen

    // Text
    readonly property color textc: contrast ? ink : dark ? "#eef2f8" : "#131a25"
    readonly property color muted: contrast ? ink : dark ? "#8a95a7" : "#5c6675"
    readonly property color faint: contrast ? ink : dark ? "#5a6576" : "#95a0b0"

    // Accent. The light theme's is too pale for text and for edges that must be seen: those are strong.
    readonly property color accent: contrast ? mark : dark ? "#22d0c1" : "#0bab9d"
    readonly property color accentInk: contrast ? markInk : dark ? "#04302c" : "#ffffff"
    readonly property color accentStrong: contrast ? mark : dark ? "#22d0c1" : "#067a70"

    // The ring around the control that has the keyboard, and what sets it off from a picture.
    readonly property color focus: contrast ? ink : accentStrong
    readonly property color focusHalo: contrast ? back : dark ? "#0b0e15" : "#ffffff"

    // The same in both themes
    readonly property color red: contrast ? mark : "#ef5b52"
    readonly property color redInk: contrast ? markInk : "#2b0806" // text on red
    readonly property color redSign: contrast ? markInk : "#ffffff"
    readonly property color amber: contrast ? ink : "#e0a12e"
    readonly property color onVideoText: contrast ? ink : "#ffffff"
    readonly property color onVideoMuted: contrast ? ink : "#c9d0da"
    readonly property color chipScrim: contrast ? back : "#99000000" // status chips over video
    readonly property color badge: contrast ? back : "#cc0b0e15"     // small signs on cards
    readonly property color badgeHair: contrast ? ink : "#33ffffff"
    readonly property color knob: contrast ? back : "#ffffff"        // of switches
    readonly property color paper: "#ffffff"                         // behind the QR code
    readonly property color shadow: "#66000000"
}

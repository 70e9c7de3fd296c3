pragma Singleton

import QtQuick

// Colours, type, radii and spacing of the whole interface. The main window binds `dark`; colours
// of eight hexadecimal digits are alpha, red, green, blue. Lengths are logical pixels.
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

    // Type scale
    readonly property int fsEyebrow: 10  // upper-case section labels
    readonly property int fsSmall: 11    // chips, badges
    readonly property int fsCaption: 12  // secondary text
    readonly property int fsBody: 13     // body, row and button labels
    readonly property int fsBtnLg: 14    // prominent button labels
    readonly property int fsSubtitle: 15
    readonly property int fsTitle: 17    // dialog titles
    readonly property int fsH2: 20
    readonly property int fsHero: 24     // the pairing headline
    readonly property string mono: "Consolas"

    // Radii
    readonly property int rControl: 8 // buttons, inputs
    readonly property int rRow: 10    // info rows, list items
    readonly property int rCard: 12   // window card, dialogs, popovers
    readonly property int rChip: 6    // small chips

    // Buttons
    readonly property int btnH: 34
    readonly property int btnHsm: 30  // compact, in rows
    readonly property int btnHlg: 40  // prominent dialog actions
    readonly property int btnPadX: 17 // beside the label

    // Spacing
    readonly property int sp1: 4
    readonly property int sp2: 8
    readonly property int sp3: 12
    readonly property int sp4: 16
    readonly property int sp5: 20

    function pill(height: real): real {
        return height / 2
    }
}

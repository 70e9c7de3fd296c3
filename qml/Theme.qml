pragma Singleton

import QtQuick

// Colours, type, radii and spacing of the whole interface. The main window binds `dark`. Lengths
// are logical pixels.
Colors {
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

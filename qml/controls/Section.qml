import QtQuick

// A headed part of a dialog; its children lie one below the other.
Column {
    id: root

    required property string label // in upper case

    spacing: Theme.sp2

    Text {
        width: parent.width
        text: root.label
        color: Theme.faint
        font.pixelSize: Theme.fsEyebrow
        font.weight: Font.DemiBold
        font.letterSpacing: 1
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}

import QtQuick
import QtQuick.Layouts

// A measured or given value at the end of an info row.
ElidedText {
    Layout.maximumWidth: 250
    Layout.rightMargin: 6
    color: Theme.muted
    font.family: Theme.mono
    font.pixelSize: Theme.fsCaption
    horizontalAlignment: Text.AlignRight
}

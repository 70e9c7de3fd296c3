import QtQuick

// A sentence of explanation below a setting.
Text {
    width: parent.width
    wrapMode: Text.Wrap
    color: Theme.muted
    font.pixelSize: Theme.fsCaption
    lineHeight: 1.1
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Effects

// The live picture with what lies over it, clipped to round corners. Without a graphics API the
// corners stay square.
Item {
    id: root

    required property string videoState // "flowing", "waiting" or "stalled"
    required property bool outputEnabled
    required property bool appConnected

    signal outputToggled()

    function setFrame(image: var): void {
        preview.setFrame(image)
    }

    Rectangle {
        id: mask

        anchors.fill: parent
        visible: false
        radius: 12
        layer.enabled: panel.layer.enabled
    }

    Rectangle {
        id: panel

        anchors.fill: parent
        radius: 12
        clip: true
        gradient: Gradient {
            GradientStop { position: 0; color: "#243049" }
            GradientStop { position: 1; color: "#0d1220" }
        }
        layer.enabled: root.visible && GraphicsInfo.api !== GraphicsInfo.Software
        layer.effect: MultiEffect {
            maskEnabled: true
            maskSource: mask
            // The mask's own edge is soft: its alpha is taken as it is.
            maskThresholdMin: 0.5
            maskSpreadAtMin: 1
        }

        FramePreview {
            id: preview
            objectName: "preview"

            anchors.fill: parent
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Live picture of the phone")
        }

        // Made when the first phone is silent: most never are.
        Loader {
            anchors.fill: parent
            active: silent || item !== null
            visible: silent && root.outputEnabled

            readonly property bool silent: root.videoState === "waiting" || root.videoState === "stalled"

            sourceComponent: VideoOverlay {
                objectName: "videoOverlay"
                stalled: root.videoState === "stalled"
            }
        }

        PausedOverlay {
            anchors.fill: parent
            visible: !root.outputEnabled
        }
    }

    // Not in the panel, whose mask would have to be drawn anew for each step of a pulse.
    OutputChip {
        objectName: "outputChip"
        x: 12
        y: 12
        live: root.outputEnabled
        videoState: root.videoState
        onClicked: root.outputToggled()
    }

    InUseChip {
        x: parent.width - width - 12
        y: 12
        visible: root.appConnected
    }
}

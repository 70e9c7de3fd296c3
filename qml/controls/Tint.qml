import QtQuick

// The colours of a dialog or a menu: those of its theme, which may be any object that has them (in
// the program, the main window), else the light ones. The only place that looks into a theme.
QtObject {
    property var theme: null

    // qmllint disable compiler
    readonly property bool dark: theme?.dark ?? false
    readonly property real cardRadius: theme?.cardRadius ?? Theme.rCard
    readonly property color surface: theme?.surface ?? LightColors.surface
    readonly property color raised: theme?.raised ?? LightColors.raised
    readonly property color hair: theme?.hair ?? LightColors.hair
    readonly property color textc: theme?.textc ?? LightColors.textc
    readonly property color muted: theme?.muted ?? LightColors.muted
    // qmllint enable compiler
}

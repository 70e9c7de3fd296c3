import QtQuick

// Stands in for the update check.
QtObject {
    property bool available: false
    property string latestVersion: ""
    property int downloads: 0
    readonly property string siteUrl: "https://pevrix.example"

    function openDownload(): void {
        ++downloads
    }
}

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Machen Sie Ihr Telefon zur PC-Webcam</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Telefon hinzufügen</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Scannen Sie diesen Code mit der Pevrix-App auf einem weiteren Telefon.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Scannen klappt nicht?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>Keine LAN-Adresse gefunden</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Geben Sie diese Adresse in der Pevrix-App ein. Oder kopieren Sie den Kopplungslink, senden Sie ihn an Ihr Telefon und öffnen Sie ihn dort. Wer den Link hat, kann sich verbinden: Geben Sie ihn nicht weiter.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Kopplungslink kopieren</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>Die Kamera sendet live</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>Die Kamera ist pausiert</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Telefon verbunden: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Telefon getrennt: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Aufnahme läuft</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>Wählen Sie im Videoanruf die Kamera „Pevrix“.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>In Videoanrufen und Browsern fehlt die Pevrix-Kamera noch.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrieren</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>Hinweis ausblenden</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>KAMERA</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>Registriert</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>Nicht registriert</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Registrierung aufheben</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrieren</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Nach dem Registrieren sehen Apps wie Zoom und Teams sowie Browser die Pevrix-Kamera. Erfordert Administratorrechte.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>AUFNAHMEN</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>Hier speichert die Schaltfläche „Aufnehmen“ die .mp4-Dateien.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>KOPPLUNG</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Neu erzeugen</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Mit einem neuen Code gilt der bisherige QR-Code für neue Telefone nicht mehr.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Ordner für Aufnahmen wählen</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Registrierung der Kamera aufheben</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Kamera registrieren</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Ordner für Aufnahmen öffnen</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Ordner für Aufnahmen ändern</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Kopplungscode neu erzeugen</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Kamerabibliothek fehlt</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Apps und Browser, die Kameras über PipeWire verwenden, sehen die Pevrix-Kamera.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Keine App kann die Pevrix-Kamera sehen. Installieren Sie Pevrix neu.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>Der bisherige QR-Code gilt dann nicht mehr, und alle gekoppelten Telefone werden entfernt: Sie müssen den neuen scannen. Fortfahren?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>Fertig: Es gibt einen neuen QR-Code. Bisher gekoppelte Telefone müssen ihn scannen.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>DARSTELLUNG</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>SPRACHE</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Sprache: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>FENSTER</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Beim Schließen in den Infobereich</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix läuft im Infobereich weiter, wenn Sie das Fenster schließen.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>Wird verwendet</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Systemsprache</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Kamera pausieren</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Kamera fortsetzen</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>WARTET</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>KEIN BILD</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Telefone können sich nicht verbinden</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>Die Pevrix-Kamera fehlt, oder ein anderes Pevrix verwendet sie. Beenden Sie das andere oder installieren Sie Pevrix neu, und starten Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows blockiert Pevrix in diesem Netzwerk</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Ihr Telefon erreicht diesen PC erst, wenn Sie es zulassen. Erfordert Administratorrechte.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Zulassen</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Bereit zum Koppeln</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Verbinden Sie Ihr Telefon</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Scannen Sie diesen Code mit der Pevrix-App. Das Telefon muss im selben WLAN sein wie dieser PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Dieser PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>App herunterladen</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Kein Netzwerk</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>Nicht bereit</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>Telefone können sich immer noch nicht verbinden</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Dieser PC ist mit keinem Netzwerk verbunden</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Verbinden Sie ihn mit Ihrem WLAN oder stecken Sie ein Netzwerkkabel ein. Ein Telefon am USB-Kabel funktioniert auch ohne Netzwerk.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>In Videoanrufen und Browsern fehlt die Kamera noch</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Registrieren Sie die Pevrix-Kamera (nur einmal). Erfordert Administratorrechte.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrieren</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Eine Aufnahme wartet auf das Telefon (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Sie geht weiter, sobald das Telefon wieder verbunden ist.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Kameraausgabe pausiert</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Apps erhalten ein Standbild. Klicken Sie auf „Kamera fortsetzen“, um wieder zu senden.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>Wartet …</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Livebild des Telefons</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Kopplungscode</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Aufnehmen</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Aufnahme gespeichert</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>Die Aufnahme wurde abgebrochen</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>Die Aufnahme konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Sie wurde beendet, weil das Bild des Telefons jetzt eine andere Größe hat.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>Es kam kein Bild, daher gibt es keine Datei.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>Der Datenträger ist voll. Was bis dahin aufgenommen wurde, ist gespeichert.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>Der Datenträger ist voll. Schaffen Sie Platz oder wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>Der Ordner für Aufnahmen ist verschwunden, und mit ihm die Aufnahme.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix kann im Ordner %1 nichts speichern.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>Die Aufnahme konnte nicht fortgesetzt werden. Was bis dahin aufgenommen wurde, ist gespeichert.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>Das Video lässt sich dort nicht speichern. Wählen Sie einen anderen Ordner oder starten Sie Pevrix neu.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>Kamera registrieren?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>Andere können Dateien in %1 ändern. Ein dort abgelegtes Programm würde in jedem Videoanruf laufen. Trotzdem registrieren?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Trotzdem registrieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Name des Telefons</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>VERBINDUNG</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Dieser PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Benötigt iTunes oder „Apple-Geräte“</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNOSE</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Leistung</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>Benötigt den Dienst usbmuxd</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Telefon pausiert (kein Bild)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>Warten auf das Bild …</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Öffnen Sie die Pevrix-App auf dem Telefon, damit es weitergeht. Bis dahin sehen Apps ein Ersatzbild.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Lassen Sie die Pevrix-App auf dem Telefon geöffnet.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Pevrix anzeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix – wird von einer App verwendet</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Pausieren</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix läuft weiter</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Ein Klick auf das Symbol holt das Fenster zurück. „Beenden“ im Menü des Symbols beendet Pevrix.</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Trasforma il telefono in una webcam per PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Aggiungi</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Aggiungi un telefono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Scansiona questo codice con l’app Pevrix su un altro telefono.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Non riesci a scansionare?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>Nessun indirizzo LAN</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Digita questo indirizzo nell’app Pevrix. Oppure copia il link di associazione, invialo al telefono e aprilo lì. Chi ha il link può connettersi: non condividerlo con nessuno.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiato</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Copia link di associazione</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>La fotocamera è in diretta</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>La fotocamera è in pausa</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Telefono connesso: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Telefono disconnesso: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Registrazione in corso</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>Nella videochiamata scegli la fotocamera «Pevrix».</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>Videochiamate e browser non vedono ancora la fotocamera Pevrix.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Installa</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>Ignora il suggerimento</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>FOTOCAMERA</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>Installata</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>Non installata</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Rimuovi</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Installa</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>L’installazione rende la fotocamera Pevrix visibile ad app come Zoom e Teams e ai browser. Richiede i diritti di amministratore.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>REGISTRAZIONI</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Cambia</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>Dove il pulsante «Registra» salva i file .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>ASSOCIAZIONE</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Codice</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Rigenera</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Dopo la rigenerazione il QR attuale non vale più per nuovi telefoni.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Scegli la cartella delle registrazioni</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Rimuovi la fotocamera</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Installa la fotocamera</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Apri la cartella delle registrazioni</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Cambia la cartella delle registrazioni</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Rigenera il codice di associazione</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Pronta</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Libreria della fotocamera mancante</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Le app e i browser che usano le fotocamere di PipeWire vedono la fotocamera Pevrix.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Nessuna app vede la fotocamera Pevrix. Reinstalla Pevrix.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>Il QR attuale non varrà più e tutti i telefoni associati saranno dimenticati: dovranno scansionare quello nuovo. Continuare?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>Fatto: c’è un nuovo QR. I telefoni già associati devono scansionarlo.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Taglia</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Incolla</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Seleziona tutto</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>ASPETTO</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Chiaro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Scuro</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>LINGUA</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Lingua: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>FINESTRA</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Chiudi nell’area di notifica</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix resta in esecuzione nell’area di notifica quando chiudi la finestra.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>In uso</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Lingua</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Lingua di sistema</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Ignora</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Metti in pausa la fotocamera</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Riattiva la fotocamera</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>ATTESA</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>NESSUN VIDEO</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>I telefoni non possono connettersi</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>La fotocamera Pevrix manca, oppure la usa un altro Pevrix. Chiudi l’altro o reinstalla Pevrix, poi riavvialo.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows blocca Pevrix su questa rete</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Il telefono non può raggiungere questo PC finché non lo consenti. Richiede i diritti di amministratore.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Consenti</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Pronto per l’associazione</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Connetti il telefono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Scansiona questo codice con l’app Pevrix. Il telefono deve essere sulla stessa rete Wi-Fi di questo PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Questo PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Scarica l’app</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Nessuna rete</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>Non pronto</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>I telefoni ancora non possono connettersi</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Questo PC non è connesso a una rete</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Connettilo al Wi-Fi o collega un cavo di rete. Un telefono collegato con un cavo USB non ne ha bisogno.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>Videochiamate e browser non vedono ancora la fotocamera</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Installa la fotocamera Pevrix (solo una volta). Richiede i diritti di amministratore.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Installa</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Una registrazione attende il telefono (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Riprenderà al ritorno del telefono.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Interrompi la registrazione</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Fotocamera in pausa</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Le app ricevono un’immagine fissa. Fai clic su «Riattiva la fotocamera» per trasmettere di nuovo.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Nessun video</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>In attesa…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Immagine in diretta del telefono</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Codice di associazione</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Interrompi la registrazione</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Registra</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Registrazione salvata</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>La registrazione si è interrotta</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>Impossibile avviare la registrazione</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostra nella cartella</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Si è interrotta perché l’immagine del telefono ha cambiato dimensioni.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>Non è arrivata nessuna immagine, quindi non c’è alcun file.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>Il disco è pieno. Quanto registrato fino ad allora è stato salvato.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>Il disco è pieno. Libera spazio o scegli un’altra cartella.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>La cartella delle registrazioni non c’è più, e con essa la registrazione.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix non può scrivere nella cartella %1.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>Impossibile continuare la registrazione. Quanto registrato fino ad allora è stato salvato.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>Impossibile salvare lì il video. Scegli un’altra cartella o riavvia Pevrix.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>Installare la fotocamera?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>Altre persone possono modificare i file in %1. Un programma messo lì verrebbe eseguito in ogni videochiamata. Installare comunque?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Installa comunque</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Rinomina %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nome del telefono</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Generale</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Fotocamera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stato</translation>
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
        <translation>CONNESSIONE</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Questo PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Porta</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>Pronto</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Richiede iTunes o l’app Dispositivi Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNOSTICA</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Prestazioni</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>Richiede il servizio usbmuxd</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Ripristina</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Ingrandisci</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>È disponibile Pevrix %1.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Scarica</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ignora</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Telefono in pausa (nessun video)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>In attesa del video…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Apri l’app Pevrix sul telefono per continuare. Fino ad allora le app vedono un’immagine di attesa.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Tieni aperta l’app Pevrix sul telefono.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Mostra Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Esci</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix – in uso da un’app</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Riattiva</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix è ancora in esecuzione</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Fai clic sulla sua icona per riaprire la finestra. Per chiuderlo del tutto, scegli «Esci» dal menu dell’icona.</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Faites de votre téléphone une webcam pour PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Ajouter</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Ajouter un téléphone</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Scannez ce code avec l’application Pevrix sur un autre téléphone.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Impossible de scanner&#xa0;?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>Aucune adresse LAN</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Saisissez cette adresse dans l’application Pevrix. Ou copiez le lien d’association et envoyez-le à votre téléphone pour l’y ouvrir. Toute personne qui a le lien peut se connecter&#xa0;: ne le partagez avec personne.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copié</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Copier le lien d’association</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>La caméra est en direct</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>La caméra est en pause</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Téléphone connecté&#xa0;: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Téléphone déconnecté&#xa0;: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Enregistrement en cours</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>Dans votre appel vidéo, choisissez la caméra «&#xa0;Pevrix&#xa0;».</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>Les appels vidéo et les navigateurs ne voient pas encore la caméra Pevrix.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Installer</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>Masquer le conseil</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>CAMÉRA</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>Installée</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>Non installée</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Désinstaller</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Installer</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Une fois installée, la caméra Pevrix est visible dans les applications comme Zoom ou Teams et dans les navigateurs. Droits d’administrateur requis.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>ENREGISTREMENTS</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Changer</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>Où le bouton «&#xa0;Enregistrer&#xa0;» place les fichiers .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>ASSOCIATION</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Régénérer</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Après régénération, le code QR actuel ne fonctionne plus pour de nouveaux téléphones.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Choisir le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Désinstaller la caméra</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Installer la caméra</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Ouvrir le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Changer le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Régénérer le code d’association</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Prête</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Bibliothèque de la caméra absente</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Les applications et navigateurs qui utilisent les caméras de PipeWire voient la caméra Pevrix.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Aucune application ne voit la caméra Pevrix. Réinstallez Pevrix.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>Le code QR actuel ne fonctionnera plus et tous les téléphones associés seront oubliés&#xa0;: ils devront scanner le nouveau. Continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>C’est fait&#xa0;: il y a un nouveau code QR. Les téléphones déjà associés doivent le scanner.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>APPARENCE</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>Système</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>LANGUE</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Langue&#xa0;: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>FENÊTRE</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Fermer dans la zone de notification</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix continue de fonctionner dans la zone de notification quand vous fermez la fenêtre.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>Utilisée</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Langue du système</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Ignorer</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Mettre la caméra en pause</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Réactiver la caméra</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>ATTENTE</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>PAS D’IMAGE</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Les téléphones ne peuvent pas se connecter</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>La caméra Pevrix est absente, ou un autre Pevrix l’utilise. Quittez l’autre ou réinstallez Pevrix, puis relancez-le.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows bloque Pevrix sur ce réseau</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Votre téléphone ne peut pas joindre ce PC sans votre autorisation. Droits d’administrateur requis.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Autoriser</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Prêt à associer</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Connectez votre téléphone</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Scannez ce code avec l’application Pevrix. Gardez votre téléphone sur le même Wi-Fi que ce PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Ce PC&#xa0;: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Obtenir l’application</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Aucun réseau</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>Pas prêt</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>Les téléphones ne peuvent toujours pas se connecter</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Ce PC n’est connecté à aucun réseau</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Connectez-le à votre Wi-Fi ou branchez un câble réseau. Un téléphone relié par câble USB n’en a pas besoin.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>Les appels vidéo et les navigateurs ne voient pas encore la caméra</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Installez la caméra Pevrix (une seule fois). Droits d’administrateur requis.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Installer</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Un enregistrement attend son téléphone (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Il reprendra quand le téléphone sera de retour.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Caméra en pause</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Les applications reçoivent une image figée. Cliquez sur «&#xa0;Réactiver la caméra&#xa0;» pour diffuser à nouveau.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Pas d’image</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>En attente…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Image en direct du téléphone</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Code d’association</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Vidéo enregistrée</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>L’enregistrement s’est arrêté</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>L’enregistrement n’a pas pu démarrer</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Il s’est arrêté parce que l’image du téléphone a changé de taille.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>Aucune image n’est arrivée, il n’y a donc pas de fichier.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>Le disque est plein. Ce qui a été filmé jusque-là est conservé.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>Le disque est plein. Libérez de l’espace ou choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>Le dossier des enregistrements a disparu, et l’enregistrement avec lui.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix ne peut pas écrire dans le dossier %1.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>L’enregistrement n’a pas pu continuer. Ce qui a été filmé jusque-là est conservé.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>Impossible d’enregistrer la vidéo à cet endroit. Choisissez un autre dossier ou redémarrez Pevrix.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>Installer la caméra&#xa0;?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>D’autres personnes peuvent modifier des fichiers dans %1. Un programme placé là s’exécuterait dans chaque appel vidéo. Installer quand même&#xa0;?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Installer quand même</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Renommer %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nom du téléphone</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONNEXION</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Ce PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Nécessite iTunes ou l’app Appareils Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNOSTIC</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Performances</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 i/s · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>Nécessite le service usbmuxd</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 est disponible.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ignorer</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Téléphone en pause (pas d’image)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>En attente de l’image…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Ouvrez l’application Pevrix sur votre téléphone pour continuer. D’ici là, les applications voient une image d’attente.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Gardez l’application Pevrix ouverte sur votre téléphone.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Afficher Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix – utilisé par une application</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Réactiver</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix continue de fonctionner</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Cliquez sur son icône pour retrouver la fenêtre. «&#xa0;Quitter&#xa0;», dans son menu, ferme le programme.</translation>
    </message>
</context>
</TS>

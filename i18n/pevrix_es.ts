<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Convierte tu teléfono en una webcam para el PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Añadir teléfono</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Añadir un teléfono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Escanea este código con la aplicación Pevrix en otro teléfono.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>¿No puedes escanear?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>No hay dirección LAN</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Escribe esta dirección en la aplicación Pevrix. O copia el enlace de vinculación, envíalo a tu teléfono y ábrelo allí. Quien tenga el enlace podrá conectarse: no lo compartas con nadie.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Copiar enlace de vinculación</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>La cámara está en directo</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>La cámara está en pausa</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Teléfono conectado: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Teléfono desconectado: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Grabando</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>En la videollamada, elige la cámara «Pevrix».</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>Las videollamadas y los navegadores aún no ven la cámara Pevrix.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>Descartar la sugerencia</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>CÁMARA</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>Registrada</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>No registrada</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Anular registro</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Al registrar la cámara Pevrix, la ven las aplicaciones como Zoom o Teams y los navegadores. Requiere permisos de administrador.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>GRABACIONES</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Cambiar</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>Carpeta donde el botón «Grabar» guarda los archivos .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>VINCULACIÓN</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Código</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Regenerar</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Al regenerarlo, el QR actual deja de servir para teléfonos nuevos.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Elegir la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Anular registro de la cámara</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Registrar la cámara</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Abrir la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Cambiar la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Regenerar el código de vinculación</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Lista</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Falta la biblioteca de la cámara</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Las aplicaciones y los navegadores que usan las cámaras de PipeWire ven la cámara Pevrix.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Ninguna aplicación ve la cámara Pevrix. Vuelve a instalar Pevrix.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>El QR actual dejará de funcionar y se olvidarán todos los teléfonos vinculados: tendrán que escanear el nuevo. ¿Continuar?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>Listo: hay un QR nuevo. Los teléfonos que estaban vinculados deben escanearlo.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Edición</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Seleccionar todo</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>APARIENCIA</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>IDIOMA</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Idioma: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>VENTANA</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Cerrar a la bandeja</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix sigue funcionando en la bandeja del sistema al cerrar la ventana.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>En uso</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Idioma del sistema</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Pausar la cámara</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Reanudar la cámara</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>ESPERA</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>SIN VÍDEO</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Los teléfonos no pueden conectarse</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>Falta la cámara Pevrix, o la está usando otro Pevrix. Cierra el otro o vuelve a instalar Pevrix, y después ábrelo de nuevo.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows bloquea Pevrix en esta red</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Tu teléfono no podrá conectarse a este PC hasta que lo permitas. Requiere permisos de administrador.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Permitir</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Listo para vincular</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Conecta tu teléfono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Escanea este código con la aplicación Pevrix. El teléfono debe estar en la misma red Wi-Fi que este PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Este PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Obtener la aplicación</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Sin red</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>No está listo</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>Los teléfonos siguen sin poder conectarse</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Este PC no está conectado a ninguna red</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Conéctalo a tu red Wi-Fi o enchufa un cable de red. Un teléfono conectado por cable USB no lo necesita.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>Las videollamadas y los navegadores aún no ven la cámara</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Registra la cámara Pevrix (solo una vez). Requiere permisos de administrador.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Una grabación espera a su teléfono (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Continuará cuando vuelva el teléfono.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Detener la grabación</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Cámara en pausa</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Las aplicaciones reciben una imagen congelada. Haz clic en «Reanudar la cámara» para volver a emitir.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Sin vídeo</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>Esperando…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Imagen en directo del teléfono</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Código de vinculación</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Detener la grabación</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Grabar</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Grabación guardada</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>La grabación se ha detenido</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>No se ha podido iniciar la grabación</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Elegir carpeta</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Se ha detenido porque la imagen del teléfono ha cambiado de tamaño.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>No llegó ninguna imagen, así que no hay archivo.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>El disco está lleno. Lo grabado hasta ese momento se ha guardado.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>El disco está lleno. Libera espacio o elige otra carpeta.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>La carpeta de grabaciones ya no existe, y la grabación tampoco.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix no puede escribir en la carpeta %1.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>No se ha podido continuar la grabación. Lo grabado hasta ese momento se ha guardado.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>No se puede guardar el vídeo ahí. Elige otra carpeta o reinicia Pevrix.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>¿Registrar la cámara?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>Otras personas pueden cambiar archivos en %1. Un programa puesto ahí se ejecutaría en cada videollamada. ¿Registrar de todos modos?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Registrar de todos modos</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Cambiar el nombre de %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nombre del teléfono</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONEXIÓN</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Este PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Puerto</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Requiere iTunes o la app Dispositivos Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNÓSTICO</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Rendimiento</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>Requiere el servicio usbmuxd</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 está disponible.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Teléfono en pausa (sin vídeo)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>Esperando el vídeo…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Abre la aplicación Pevrix en tu teléfono para continuar. Hasta entonces, las aplicaciones ven una imagen de espera.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Mantén abierta la aplicación Pevrix en tu teléfono.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Mostrar Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix: en uso por una aplicación</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reanudar</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix sigue funcionando</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Haz clic en su icono para recuperar la ventana. «Salir», en su menú, lo cierra del todo.</translation>
    </message>
</context>
</TS>

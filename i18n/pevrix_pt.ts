<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Transforme seu celular em uma webcam para o PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Adicionar</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Adicionar um celular</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Escaneie este código com o aplicativo Pevrix em outro celular.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Não consegue escanear?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>Nenhum endereço LAN</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Digite este endereço no aplicativo Pevrix. Ou copie o link de pareamento, envie-o ao celular e abra-o lá. Quem tiver o link poderá se conectar: não o compartilhe com ninguém.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Copiar link de pareamento</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>A câmera está ao vivo</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>A câmera está em pausa</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Celular conectado: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Celular desconectado: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Gravando</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>Na videochamada, escolha a câmera “Pevrix”.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>As videochamadas e os navegadores ainda não veem a câmera Pevrix.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>Dispensar a dica</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>CÂMERA</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>Registrada</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>Não registrada</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Remover registro</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Com o registro, aplicativos como Zoom e Teams e os navegadores veem a câmera Pevrix. Requer permissão de administrador.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>GRAVAÇÕES</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Alterar</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>Onde o botão “Gravar” salva os arquivos .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>PAREAMENTO</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Código</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Gerar novo</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Ao gerar um novo, o QR atual deixa de funcionar para novos celulares.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Escolher a pasta de gravações</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Remover registro da câmera</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Registrar a câmera</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Abrir a pasta de gravações</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Alterar a pasta de gravações</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Gerar novo código de pareamento</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Pronta</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Falta a biblioteca da câmera</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Os aplicativos e navegadores que usam as câmeras do PipeWire veem a câmera Pevrix.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Nenhum aplicativo vê a câmera Pevrix. Instale o Pevrix novamente.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>O QR atual deixará de funcionar e todos os celulares pareados serão esquecidos: terão de escanear o novo. Continuar?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>Pronto: há um novo QR. Os celulares que estavam pareados precisam escaneá-lo.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Colar</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Selecionar tudo</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>APARÊNCIA</translation>
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
        <translation>Escuro</translation>
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
        <translation>JANELA</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Fechar para a bandeja</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>O Pevrix continua em execução na bandeja do sistema quando você fecha a janela.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>Em uso</translation>
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
        <translation>Idioma do sistema</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Dispensar</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Pausar a câmera</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Reativar a câmera</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>AGUARDANDO</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>SEM VÍDEO</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Os celulares não podem se conectar</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>A câmera Pevrix não foi encontrada, ou outro Pevrix a está usando. Feche o outro ou reinstale o Pevrix e depois abra-o novamente.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>O Windows está bloqueando o Pevrix nesta rede</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>O celular não se conectará a este PC até que você permita. Requer permissão de administrador.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Permitir</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Pronto para parear</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Conecte seu celular</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Escaneie este código com o aplicativo Pevrix. Mantenha o celular na mesma rede Wi-Fi deste PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Este PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Baixar o aplicativo</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Sem rede</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>Não está pronto</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>Os celulares ainda não podem se conectar</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Tentar de novo</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Este PC não está conectado a uma rede</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Conecte-o ao Wi-Fi ou ligue um cabo de rede. Um celular conectado por cabo USB não precisa disso.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>As videochamadas e os navegadores ainda não veem a câmera</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Registre a câmera Pevrix (só uma vez). Requer permissão de administrador.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Uma gravação aguarda o celular (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Ela continuará quando o celular voltar.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Parar a gravação</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Câmera em pausa</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Os aplicativos recebem uma imagem congelada. Clique em “Reativar a câmera” para transmitir de novo.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Sem vídeo</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>Aguardando…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Imagem ao vivo do celular</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Código de pareamento</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Parar a gravação</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Gravar</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Gravação salva</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>A gravação parou</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>Não foi possível iniciar a gravação</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Escolher pasta</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Ela parou porque a imagem do celular mudou de tamanho.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>Nenhuma imagem chegou, por isso não há arquivo.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>O disco está cheio. O que foi gravado até então foi salvo.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>O disco está cheio. Libere espaço ou escolha outra pasta.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>A pasta de gravações não existe mais, e a gravação também não.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>O Pevrix não consegue salvar na pasta %1.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>Não foi possível continuar a gravação. O que foi gravado até então foi salvo.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>Não é possível salvar o vídeo ali. Escolha outra pasta ou reinicie o Pevrix.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>Registrar a câmera?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>Outras pessoas podem alterar arquivos em %1. Um programa colocado ali seria executado em todas as chamadas de vídeo. Registrar mesmo assim?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Registrar mesmo assim</translation>
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
        <translation>Renomear %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nome do celular</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Configurações</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Geral</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Câmera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONEXÃO</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Este PC</translation>
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
        <translation>Requer o iTunes ou o app Dispositivos Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNÓSTICO</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Desempenho</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>Requer o serviço usbmuxd</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Configurações</translation>
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
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>O Pevrix %1 está disponível.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Baixar</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Dispensar</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Celular em pausa (sem vídeo)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>Aguardando o vídeo…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Abra o aplicativo Pevrix no celular para continuar. Até lá, os aplicativos veem uma imagem de espera.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Mantenha o aplicativo Pevrix aberto no celular.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Mostrar o Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Sair</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix – em uso por um aplicativo</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reativar</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>O Pevrix continua em execução</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Clique no ícone para trazer a janela de volta. Para encerrar, escolha “Sair” no menu do ícone.</translation>
    </message>
</context>
</TS>

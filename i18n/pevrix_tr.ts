<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr_TR" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Telefonunuzu bilgisayar kamerasına dönüştürün</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Telefon ekle</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Telefon ekle</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Bu kodu başka bir telefondaki Pevrix uygulamasıyla tarayın.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Tarayamıyor musunuz?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>LAN adresi bulunamadı</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Bu adresi Pevrix uygulamasına yazın. Ya da eşleştirme bağlantısını kopyalayın, telefonunuza gönderin ve orada açın. Bağlantıya sahip olan herkes bağlanabilir: kimseyle paylaşmayın.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopyalandı</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Eşleştirme bağlantısını kopyala</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>Kamera canlı yayında</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>Kamera duraklatıldı</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Telefon bağlandı: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Telefonun bağlantısı kesildi: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Video kaydediliyor</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>Görüntülü görüşmenizde “Pevrix” kamerasını seçin.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>Pevrix kamerası, görüşmelerde ve tarayıcılarda henüz görünmüyor.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Sisteme ekle</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>İpucunu kapat</translation>
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
        <translation>Sisteme ekli</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>Sisteme ekli değil</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Sistemden kaldır</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Sisteme ekle</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Sisteme eklendiğinde Zoom, Teams gibi uygulamalar ve tarayıcılar Pevrix kamerasını görür. Yönetici izni ister.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>VİDEO KAYITLARI</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Aç</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Değiştir</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>“Kaydet” düğmesi .mp4 dosyalarını buraya kaydeder.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>EŞLEŞTİRME</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Kod</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Yenile</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Kod yenilenince şimdiki QR kodu yeni telefonlarda artık çalışmaz.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Video kayıtları klasörünü seçin</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Kamerayı sistemden kaldır</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Kamerayı sisteme ekle</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Video kayıtları klasörünü aç</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Video kayıtları klasörünü değiştir</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Eşleştirme kodunu yenile</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Hazır</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Kamera kitaplığı eksik</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Kameralarını PipeWire’dan alan uygulamalar ve tarayıcılar Pevrix kamerasını görür.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Hiçbir uygulama Pevrix kamerasını göremiyor. Pevrix’i yeniden kurun.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>İptal</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>Şimdiki QR kodu artık çalışmaz ve eşleştirilmiş tüm telefonlar unutulur: yeni kodu taramaları gerekir. Devam edilsin mi?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>Tamam: yeni QR kodu hazır. Daha önce eşleştirilmiş telefonlar bu kodu taramalı.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Düzen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Kes</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopyala</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Yapıştır</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tümünü seç</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>GÖRÜNÜM</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>Sistem</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Açık</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Koyu</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>DİL</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Dil: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>PENCERE</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Bildirim alanına kapat</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pencereyi kapattığınızda Pevrix bildirim alanında çalışmaya devam eder.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>Kullanımda</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Dil</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Sistem dili</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Kamerayı duraklat</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Kamerayı sürdür</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>BEKLİYOR</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>GÖRÜNTÜ YOK</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Telefonlar bağlanamıyor</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>Pevrix kamerası eksik ya da başka bir Pevrix onu kullanıyor. Diğerinden çıkın veya Pevrix’i yeniden kurun, sonra Pevrix’i yeniden başlatın.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows bu ağda Pevrix’i engelliyor</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>İzin vermediğiniz sürece telefonunuz bu bilgisayara ulaşamaz. Yönetici izni ister.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>İzin ver</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Eşleştirmeye hazır</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Telefonunuzu bağlayın</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Bu kodu Pevrix uygulamasıyla tarayın. Telefonunuz bu bilgisayarla aynı Wi-Fi ağında olmalıdır.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Bu bilgisayar: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Uygulamayı indir</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Ağ yok</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>Hazır değil</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>Telefonlar hâlâ bağlanamıyor</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Yeniden dene</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Bu bilgisayar bir ağa bağlı değil</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Bilgisayarı Wi-Fi ağınıza bağlayın ya da bir ağ kablosu takın. USB kablosuyla bağlı telefona ağ gerekmez.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>Kamera, görüşmelerde ve tarayıcılarda henüz görünmüyor</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Pevrix kamerasını sisteme ekleyin (yalnızca bir kez). Yönetici izni ister.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Sisteme ekle</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Bir kayıt telefonu bekliyor (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Telefon yeniden bağlanınca devam eder.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Kaydı durdur</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Kamera çıkışı duraklatıldı</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Uygulamalar donmuş bir görüntü alıyor. Yayına devam etmek için “Kamerayı sürdür” düğmesine tıklayın.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Görüntü yok</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>Bekliyor…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Telefonun canlı görüntüsü</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Eşleştirme kodu</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Kaydı durdur</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Kaydet</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Video kaydedildi</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>Kayıt yarıda kesildi</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>Kayıt başlatılamadı</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Klasörde göster</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Klasör seç</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Telefonun görüntü boyutu değiştiği için sona erdi.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>Hiç görüntü gelmedi, bu yüzden dosya yok.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>Disk dolu. O ana kadar kaydedilenler saklandı.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>Disk dolu. Yer açın ya da başka bir klasör seçin.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>Video kayıtları klasörü artık yok, kayıt da onunla birlikte gitti.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix %1 klasörüne yazamıyor.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>Video kaydı sürdürülemedi. O ana kadar kaydedilenler saklandı.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>Video oraya kaydedilemiyor. Başka bir klasör seçin ya da Pevrix’i yeniden başlatın.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>Kamera sisteme eklensin mi?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>Başkaları %1 klasöründeki dosyaları değiştirebilir. Oraya konan bir program her görüntülü aramada çalışır. Yine de eklensin mi?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Yine de ekle</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>İptal</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>%1: yeniden adlandır</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Telefonun adı</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Ayarlar</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Genel</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Durum</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Hakkında</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>BAĞLANTI</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Bu bilgisayar</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Bağlantı noktası</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>Hazır</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>iTunes veya “Apple Aygıtları” gerekir</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>TANILAMA</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Performans</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>usbmuxd hizmeti gerekir</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Ayarlar</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Simge durumuna küçült</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Önceki boyut</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Ekranı kapla</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 yayımlandı.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>İndir</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Telefon duraklatıldı (görüntü yok)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>Görüntü bekleniyor…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Sürdürmek için telefonunuzda Pevrix uygulamasını açın. O zamana kadar uygulamalar bir bekleme görüntüsü görür.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Telefonunuzda Pevrix uygulamasını açık tutun.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Pevrix’i göster</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Çıkış</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix – bir uygulama kullanıyor</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Duraklat</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Sürdür</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix çalışmaya devam ediyor</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Pencereyi geri getirmek için simgesine tıklayın. Simge menüsündeki “Çıkış” programı kapatır.</translation>
    </message>
</context>
</TS>

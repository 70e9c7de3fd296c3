<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Превратите телефон в веб-камеру для ПК</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Добавить</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Добавить телефон</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Отсканируйте этот код в приложении Pevrix на другом телефоне.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Не сканируется?</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>Нет адреса в сети</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>Введите этот адрес в приложении Pevrix. Или скопируйте ссылку для сопряжения, отправьте её на телефон и откройте там. Подключиться может любой, у кого есть ссылка: никому её не передавайте.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Скопировано</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>Скопировать ссылку</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>Камера передаёт изображение</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>Камера приостановлена</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Телефон подключён: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Телефон отключён: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>Идёт запись</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>Выберите в видеозвонке камеру «Pevrix».</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>В видеозвонках и браузерах пока нет камеры Pevrix.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Зарегистрировать</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>Скрыть подсказку</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>КАМЕРА</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>Зарегистрирована</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>Не зарегистрирована</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>Отменить регистрацию</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Зарегистрировать</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>После регистрации камеру Pevrix видят браузеры и приложения вроде Zoom и Teams. Нужны права администратора.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>ЗАПИСИ</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>Изменить</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>Сюда кнопка «Записать» сохраняет файлы .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>СОПРЯЖЕНИЕ</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Код</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>Создать новый</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>После смены кода текущий QR-код перестанет действовать для новых телефонов.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Выбор папки для записей</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Отменить регистрацию камеры</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Зарегистрировать камеру</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Открыть папку для записей</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Изменить папку для записей</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Создать новый код сопряжения</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>Готова</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>Нет библиотеки камеры</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>Камеру Pevrix видят приложения и браузеры, которые получают камеры через PipeWire.</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>Приложения не видят камеру Pevrix. Переустановите Pevrix.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>Текущий QR-код перестанет действовать, а сопряжение всех телефонов будет сброшено: им придётся отсканировать новый. Продолжить?</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>Готово: создан новый QR-код. Отсканируйте его на ранее сопряжённых телефонах.</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Правка</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Вырезать</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Вставить</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Выделить всё</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>ОФОРМЛЕНИЕ</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>Системное</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Светлое</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Тёмное</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>ЯЗЫК</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Язык: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>ОКНО</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Закрывать в область уведомлений</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>После закрытия окна Pevrix продолжит работать в области уведомлений.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>Используется</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Язык системы</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>Скрыть</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Приостановить камеру</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>Включить камеру снова</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>ОЖИДАНИЕ</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>НЕТ ВИДЕО</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Телефоны не могут подключиться</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>Камера Pevrix не найдена, или её использует другой экземпляр Pevrix. Закройте его или переустановите Pevrix, затем запустите программу снова.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows блокирует Pevrix в этой сети</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Телефон не сможет подключиться к этому ПК без вашего разрешения. Нужны права администратора.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Разрешить</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Готово к сопряжению</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Подключите телефон</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Отсканируйте этот код в приложении Pevrix. Телефон должен быть в той же сети Wi-Fi, что и этот ПК.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Этот ПК: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Скачать приложение</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>Нет сети</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>Не готово</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>Телефоны по-прежнему не могут подключиться</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Повторить</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>Этот ПК не подключён к сети</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Подключите его к Wi-Fi или вставьте сетевой кабель. Телефону, подключённому по USB, сеть не нужна.</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>В видеозвонках и браузерах пока нет камеры</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Зарегистрируйте камеру Pevrix (только один раз). Нужны права администратора.</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>Зарегистрировать</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>Запись ждёт телефон (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>Она продолжится, когда телефон снова подключится.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Остановить запись</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Трансляция с камеры приостановлена</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>Приложения получают застывший кадр. Нажмите «Включить камеру снова», чтобы продолжить трансляцию.</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>Нет видео</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>Ожидание…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Изображение с телефона</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>Код сопряжения</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Остановить запись</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>Записать</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>Запись сохранена</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>Запись прервана</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>Не удалось начать запись</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Показать в папке</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>Выбрать папку</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>Она завершена, потому что размер изображения с телефона изменился.</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>Изображение не поступило, поэтому файла нет.</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>Диск заполнен. Всё записанное до этого сохранено.</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>Диск заполнен. Освободите место или выберите другую папку.</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>Папка для записей исчезла, а с ней и запись.</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix не может сохранять файлы в папку %1.</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>Не удалось продолжить запись видео. Всё записанное до этого сохранено.</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>Не удаётся сохранить видео в эту папку. Выберите другую или перезапустите Pevrix.</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>Зарегистрировать камеру?</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>Другие могут изменять файлы в папке %1. Помещённая туда программа запускалась бы при каждом видеозвонке. Всё равно зарегистрировать?</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>Всё равно зарегистрировать</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Переименовать %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Имя телефона</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Общие</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Камера</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Статус</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>ПОДКЛЮЧЕНИЕ</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Этот ПК</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Порт</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Нужен iTunes или «Устройства Apple»</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>ДИАГНОСТИКА</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Производительность</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 кадр/с · %2 мс</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>Нужна служба usbmuxd</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Свернуть</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Восстановить</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Развернуть</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Доступна версия Pevrix %1.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Скачать</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Скрыть</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>Телефон на паузе (нет видео)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>Ожидание видео…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>Чтобы продолжить, откройте приложение Pevrix на телефоне. До тех пор приложения видят заставку.</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>Не закрывайте приложение Pevrix на телефоне.</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Показать Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Выход</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix — используется приложением</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>Пауза</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Продолжить</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix продолжает работать</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Нажмите значок, чтобы вернуть окно. Пункт «Выход» в меню значка завершает программу.</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>让手机变成电脑的摄像头</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>添加手机</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>添加手机</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>用另一部手机上的 Pevrix 应用扫描此二维码。</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>无法扫描？</translation>
    </message>
    <message>
        <source>No LAN address found</source>
        <translation>未找到局域网地址</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>在 Pevrix 应用中输入此地址；或复制配对链接，发送到手机并在手机上打开。拥有该链接的人都能连接，请勿分享给他人。</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>复制配对链接</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>摄像头正在传送实时画面</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>摄像头已暂停</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>手机已连接：%1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>手机已断开：%1</translation>
    </message>
    <message>
        <source>Recording</source>
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>正在录制</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>请在视频通话中选择“Pevrix”摄像头。</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>通话应用和浏览器还找不到 Pevrix 摄像头。</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>注册</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>隐藏提示</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>摄像头</translation>
    </message>
    <message>
        <source>Registered</source>
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>已注册</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>未注册</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>取消注册</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>注册</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>注册后，Zoom、Teams 等应用和浏览器就能看到 Pevrix 摄像头。需要管理员权限。</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>录像</translation>
    </message>
    <message>
        <source>Open</source>
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>打开</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>更改</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>“录制”按钮将 .mp4 文件保存到此处。</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>配对</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>配对码</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <extracomment>Button: makes a new pairing code.</extracomment>
        <translation>重新生成</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>重新生成后，当前二维码对新手机失效。</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>选择录像文件夹</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>取消注册摄像头</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>注册摄像头</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>打开录像文件夹</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>更改录像文件夹</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>重新生成配对码</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>缺少摄像头库</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>通过 PipeWire 使用摄像头的应用和浏览器能看到 Pevrix 摄像头。</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>应用看不到 Pevrix 摄像头。请重新安装 Pevrix。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>当前二维码将失效，所有已配对的手机都将被移除，需要扫描新的二维码。是否继续？</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>完成：已生成新的二维码。之前配对的手机需要扫描它。</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>全选</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>System</source>
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>语言：%1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>关闭到通知区域</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>关闭窗口后，Pevrix 继续在通知区域运行。</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
        <translation>使用中</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>跟随系统</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>暂停摄像头</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>恢复摄像头</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>等待中</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>没有画面</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>手机无法连接</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>找不到 Pevrix 摄像头，或者另一个 Pevrix 正在使用它。请退出另一个 Pevrix 或重新安装，然后再打开 Pevrix。</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows 在此网络上阻止了 Pevrix</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>允许之后，手机才能连接此电脑。需要管理员权限。</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>允许</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>可以配对</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>连接手机</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>用 Pevrix 应用扫描此二维码。手机需与此电脑连接同一 Wi-Fi。</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>此电脑：%1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>获取应用</translation>
    </message>
    <message>
        <source>No network</source>
        <translation>没有网络</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>未就绪</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>手机仍然无法连接</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>此电脑未连接网络</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>请连接 Wi-Fi 或插入网线。通过 USB 数据线连接的手机不需要网络。</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>通话应用和浏览器还找不到摄像头</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>请注册 Pevrix 摄像头（只需一次）。需要管理员权限。</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>注册</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>录制正在等待手机（%1）</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>手机恢复连接后将继续录制。</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>停止录制</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>摄像头输出已暂停</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>其他应用收到的是静止画面。点击“恢复摄像头”即可继续传送画面。</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>没有画面</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>等待中…</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>手机实时画面</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
        <translation>配对二维码</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>停止录制</translation>
    </message>
    <message>
        <source>Record</source>
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>录制</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>录像已保存</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>录制已中断</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>无法开始录制</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>由于手机画面尺寸改变，录制已结束。</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>没有收到画面，因此没有文件。</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>磁盘已满。此前录制的内容已保存。</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>磁盘已满。请释放空间或选择其他文件夹。</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>录像文件夹已不存在，录像也随之丢失。</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix 无法写入文件夹 %1。</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>无法继续录制视频。此前录制的内容已保存。</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>无法将视频保存到该文件夹。请选择其他文件夹或重新启动 Pevrix。</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>要注册摄像头吗？</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>其他人可以更改 %1 中的文件。放在那里的程序会在每次视频通话时运行。仍要注册吗？</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>仍要注册</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>重命名 %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>手机名称</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>摄像头</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>此电脑</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>Ready</source>
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>需要 iTunes 或“Apple 设备”应用</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>诊断</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>性能</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>需要 usbmuxd 服务</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>还原</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 现已推出。</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>手机已暂停（没有画面）</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>正在等待画面…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>请在手机上打开 Pevrix 应用以继续。在此之前，其他应用会看到等待画面。</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>请让手机上的 Pevrix 应用保持打开。</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>显示 Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix——正被应用使用</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix 仍在运行</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>点击图标可恢复窗口。图标菜单中的“退出”会结束程序。</translation>
    </message>
</context>
</TS>

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
        <translation>正在录制</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>录像已自行停止</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>录像已保存</translation>
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
        <translation>已注册</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>未注册</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>取消注册</translation>
    </message>
    <message>
        <source>Register</source>
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
        <translation>打开</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>更改</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
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
        <translation>关闭到托盘</translation>
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
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>暂停摄像头</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>恢复摄像头</translation>
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
        <translation>找不到 Pevrix 摄像头，或者另一个 Pevrix 正在使用它。请退出另一个或重新安装 Pevrix，然后重新启动。</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows 正在此网络中阻止 Pevrix</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>在您允许之前，手机无法连接此电脑。需要管理员权限。</translation>
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
        <translation>连接您的手机</translation>
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
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>摄像头输出已暂停</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>其他应用收到的是静止画面。点击“恢复摄像头”可重新播送。</translation>
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
        <translation>配对码</translation>
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
        <translation>录制</translation>
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
        <translation>通用</translation>
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
        <translation>忽略</translation>
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
        <translation>Pevrix - 正被应用使用</translation>
    </message>
    <message>
        <source>Pause</source>
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
        <translation>单击其图标可恢复窗口。图标菜单中的“退出”会结束程序。</translation>
    </message>
</context>
</TS>

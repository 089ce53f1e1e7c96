<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>内部版本</translation>
    </message>
    <message>
        <source>64 bit</source>
        <translation>64 位</translation>
    </message>
    <message>
        <source>Visit our home page</source>
        <translation>访问我们的主页</translation>
    </message>
</context>
<context>
    <name>CAboutSorelDlg</name>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
</context>
<context>
    <name>CLanguageManager</name>
    <message>
        <source>language name</source>
        <translation>简体中文</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>2052</translation>
    </message>
</context>
<context>
    <name>CLanguageTest</name>
    <message>
        <source>language name</source>
        <translation>简体中文</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>2052</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>Dialog</source>
        <translation>对话框</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>不保存</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>不退出</translation>
    </message>
    <message>
        <source>Quit without saving</source>
        <translation>退出而不保存</translation>
    </message>
</context>
<context>
    <name>HostWarningDlg</name>
    <message>
        <source>Open original image</source>
        <translation>打开原始图像</translation>
    </message>
    <message>
        <source>Your image cannot be modified.</source>
        <translation>无法使用 Vexa Rectivo 3 修改您的图像。</translation>
    </message>
    <message>
        <source>Why cannot I save with this host application?</source>
        <translation>为什么无法在此宿主应用程序中保存 Vexa Rectivo 3 的编辑结果？</translation>
    </message>
    <message>
        <source>Unfortunately this plugin cannot be used as a plugin for this host application.</source>
        <translation>很遗憾，Vexa Rectivo 3 无法作为此宿主应用程序的插件使用。该插件会更改图像的尺寸，而您当前的宿主应用程序无法做到这一点。
您仍然可以试用本软件及其功能，但无法保存所做的更改。
Vexa Rectivo 3 也可以作为独立应用程序使用。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>试用</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>px</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>in</source>
        <translation>英寸</translation>
    </message>
    <message>
        <source>cm</source>
        <translation>厘米</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>毫米</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>B</source>
        <translation>B</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Windows small space message on drive %1</source>
        <translation>由于磁盘 %1 上的可用空间不足，Vexa Rectivo 3 无法启动。
请从该磁盘删除不需要的文件，然后重试。</translation>
    </message>
    <message>
        <source>Out of memory. Program will be closed.</source>
        <translation>由于可用内存不足，Vexa Rectivo 3 必须关闭。
请关闭其他一些程序，然后重新启动 Vexa Rectivo 3。</translation>
    </message>
    <message>
        <source>%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, quit all other programs running, and try again.</source>
        <translation>%1 内存不足。应用程序现在可能变得不稳定。请关闭 %2 和 Photoshop，退出所有其他正在运行的程序，然后重试。</translation>
    </message>
    <message>
        <source>Unhandled exception. Program will be closed.</source>
        <translation>由于出现未处理的异常，Vexa Rectivo 3 必须关闭。</translation>
    </message>
</context>
<context>
    <name>aboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>关于 %1</translation>
    </message>
    <message>
        <source>Shift your perspective</source>
        <translation>转换您的视角</translation>
    </message>
    <message>
        <source>%1 and the Vexa logo are trademarks of Vexa Labs. All rights reserved.&lt;br&gt;&lt;br&gt;This software uses the components whose licences follow.&lt;br&gt;&lt;br&gt;</source>
        <translation>%1 和 Vexa 徽标是 Vexa Labs 的商标。保留所有权利。&lt;br&gt;&lt;br&gt;本软件使用了以下许可证所涵盖的组件。&lt;br&gt;&lt;br&gt;</translation>
    </message>
</context>
<context>
    <name>aboutSorelDlg</name>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Sorel Collection by Vexa</source>
        <translation>Vexa 出品的 Sorel Collection</translation>
    </message>
</context>
</TS>

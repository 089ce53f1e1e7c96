<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Build</translation>
    </message>
    <message>
        <source>64 bit</source>
        <translation>64 bit</translation>
    </message>
    <message>
        <source>Visit our home page</source>
        <translation>Visit our home page</translation>
    </message>
</context>
<context>
    <name>CAboutSorelDlg</name>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
</context>
<context>
    <name>CLanguageManager</name>
    <message>
        <source>language name</source>
        <translation>English</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1033</translation>
    </message>
</context>
<context>
    <name>CLanguageTest</name>
    <message>
        <source>language name</source>
        <translation>English</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1033</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>Dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Rotate</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>Don&apos;t save</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>Don&apos;t quit</translation>
    </message>
    <message>
        <source>Quit without saving</source>
        <translation>Quit without saving</translation>
    </message>
</context>
<context>
    <name>HostWarningDlg</name>
    <message>
        <source>Open original image</source>
        <translation>Open original image</translation>
    </message>
    <message>
        <source>Your image cannot be modified.</source>
        <translation>Your image cannot be modified with Vexa Rectivo 3.</translation>
    </message>
    <message>
        <source>Why cannot I save with this host application?</source>
        <translation>Why can’t I save my Vexa Rectivo 3 edits in this host application?</translation>
    </message>
    <message>
        <source>Unfortunately this plugin cannot be used as a plugin for this host application.</source>
        <translation>Unfortunately, Vexa Rectivo 3 cannot be used as a plugin for this host application. The plugin will change the dimensions of your images, which cannot be done within your current host application. 
You can still try out the software and its features, but you will not be able to save your changes. 
Vexa Rectivo 3 can also be used as a standalone application.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Try</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>in</source>
        <translation>in</translation>
    </message>
    <message>
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
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
        <translation>Error</translation>
    </message>
    <message>
        <source>Windows small space message on drive %1</source>
        <translation>Vexa Rectivo 3 cannot start since there is not enough free space on disk %1.
Please remove unnecessary files from the disk and try again.</translation>
    </message>
    <message>
        <source>Out of memory. Program will be closed.</source>
        <translation>Vexa Rectivo 3 must close because there is not enough memory available.
Please close some other programs and try to start Vexa Rectivo 3 again.</translation>
    </message>
    <message>
        <source>%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, quit all other programs running, and try again.</source>
        <translation>%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, quit all other programs running, and try again.</translation>
    </message>
    <message>
        <source>Unhandled exception. Program will be closed.</source>
        <translation>Vexa Rectivo 3 must close because of an unhandled exception.</translation>
    </message>
</context>
<context>
    <name>aboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>About %1</translation>
    </message>
    <message>
        <source>Shift your perspective</source>
        <translation>Shift your perspective</translation>
    </message>
    <message>
        <source>%1 and the Vexa logo are trademarks of Vexa Labs. All rights reserved.&lt;br&gt;&lt;br&gt;This software uses the components whose licences follow.&lt;br&gt;&lt;br&gt;</source>
        <translation>%1 and the Vexa logo are trademarks of Vexa Labs. All rights reserved.&lt;br&gt;&lt;br&gt;This software uses the components whose licences follow.&lt;br&gt;&lt;br&gt;</translation>
    </message>
</context>
<context>
    <name>aboutSorelDlg</name>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Sorel Collection by Vexa</source>
        <translation>Sorel Collection by Vexa</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>QObject</name>
    <message>
        <source>Error</source>
        <translation>Test error</translation>
    </message>
    <message>
        <source>Out of memory. Program will be closed.</source>
        <translation>Test: out of memory</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>Yes</source>
        <translation>Test yes</translation>
    </message>
    <message>
        <source>Dialog</source>
        <translation>Test dialog</translation>
    </message>
</context>
<context>
    <name>HostWarningDlg</name>
    <message>
        <source>Quit</source>
        <translation>Test quit</translation>
    </message>
</context>
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version</source>
        <translation>Test version</translation>
    </message>
</context>
<context>
    <name>aboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>Test about %1</translation>
    </message>
</context>
<context>
    <name>aboutSorelDlg</name>
    <message>
        <source>Sorel Collection by Vexa</source>
        <translation>Test collection</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
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
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
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
</context>
</TS>

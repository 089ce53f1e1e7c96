<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
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
        <translation>64 Bit</translation>
    </message>
    <message>
        <source>Visit our home page</source>
        <translation>Besuchen Sie unsere Homepage</translation>
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
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1031</translation>
    </message>
</context>
<context>
    <name>CLanguageTest</name>
    <message>
        <source>language name</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1031</translation>
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
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>Quit without saving</source>
        <translation>Ohne Speichern beenden</translation>
    </message>
</context>
<context>
    <name>HostWarningDlg</name>
    <message>
        <source>Open original image</source>
        <translation>Originalbild öffnen</translation>
    </message>
    <message>
        <source>Your image cannot be modified.</source>
        <translation>Ihr Bild kann mit Vexa Rectivo 3 nicht bearbeitet werden.</translation>
    </message>
    <message>
        <source>Why cannot I save with this host application?</source>
        <translation>Warum kann ich meine Änderungen mit Vexa Rectivo 3 in dieser Host-Anwendung nicht speichern?</translation>
    </message>
    <message>
        <source>Unfortunately this plugin cannot be used as a plugin for this host application.</source>
        <translation>Leider kann Vexa Rectivo 3 nicht als Plug-in für diese Host-Anwendung verwendet werden. Das Plug-in verändert die Abmessungen Ihrer Bilder, was in Ihrer aktuellen Host-Anwendung nicht möglich ist. 
Sie können die Software und ihre Funktionen trotzdem ausprobieren, Ihre Änderungen aber nicht speichern. 
Vexa Rectivo 3 kann auch als eigenständige Anwendung verwendet werden.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Ausprobieren</translation>
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
        <translation>Zoll</translation>
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
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Windows small space message on drive %1</source>
        <translation>Vexa Rectivo 3 kann nicht gestartet werden, da auf Laufwerk %1 nicht genügend freier Speicherplatz vorhanden ist.
Bitte entfernen Sie nicht benötigte Dateien von dem Laufwerk und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Out of memory. Program will be closed.</source>
        <translation>Vexa Rectivo 3 muss beendet werden, da nicht genügend Arbeitsspeicher verfügbar ist.
Bitte schließen Sie einige andere Programme und starten Sie Vexa Rectivo 3 erneut.</translation>
    </message>
    <message>
        <source>%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, quit all other programs running, and try again.</source>
        <translation>%1 hat keinen freien Arbeitsspeicher mehr. Die Anwendung kann jetzt instabil werden. Bitte schließen Sie %2 und Photoshop, beenden Sie alle anderen laufenden Programme und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Unhandled exception. Program will be closed.</source>
        <translation>Vexa Rectivo 3 muss aufgrund einer unbehandelten Ausnahme beendet werden.</translation>
    </message>
</context>
<context>
    <name>aboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Shift your perspective</source>
        <translation>Verändern Sie Ihre Perspektive</translation>
    </message>
    <message>
        <source>%1 and the Vexa logo are trademarks of Vexa Labs. All rights reserved.&lt;br&gt;&lt;br&gt;This software uses the components whose licences follow.&lt;br&gt;&lt;br&gt;</source>
        <translation>%1 und das Vexa-Logo sind Marken von Vexa Labs. Alle Rechte vorbehalten.&lt;br&gt;&lt;br&gt;Diese Software verwendet die Komponenten, deren Lizenzen im Folgenden aufgeführt sind.&lt;br&gt;&lt;br&gt;</translation>
    </message>
</context>
<context>
    <name>aboutSorelDlg</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Sorel Collection by Vexa</source>
        <translation>Sorel Collection von Vexa</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ArchivePage</name>
    <message>
        <source>%1 files compressed into %2 (%3 bytes).</source>
        <translation>%1 Dateien in %2 komprimiert (%3 Bytes).</translation>
    </message>
    <message>
        <source>Compression failed.</source>
        <translation>Die Komprimierung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 files extracted into %2.</source>
        <translation>%1 Dateien nach %2 entpackt.</translation>
    </message>
    <message>
        <source>Writing the files: %p%</source>
        <translation>Dateien werden geschrieben: %p%</translation>
    </message>
    <message>
        <source>Extracting: %p%</source>
        <translation>Entpacken: %p%</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Compress a set of generated files with the archive helpers, then extract it again</source>
        <translation>Eine Reihe erzeugter Dateien mit den Archivfunktionen komprimieren und wieder entpacken</translation>
    </message>
    <message>
        <source> files</source>
        <translation> Dateien</translation>
    </message>
    <message>
        <source>Compress</source>
        <translation>Komprimieren</translation>
    </message>
    <message>
        <source>Extract</source>
        <translation>Entpacken</translation>
    </message>
</context>
<context>
    <name>ShowcaseWindow</name>
    <message>
        <source>The image was changed. Do you want to save the changes before closing it?</source>
        <translation>Das Bild wurde geändert. Möchten Sie die Änderungen vor dem Schließen speichern?</translation>
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
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>The image was saved.</source>
        <translation>Das Bild wurde gespeichert.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>The file cannot be opened.</source>
        <translation>Die Datei kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>Kritisch</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>Der Vorgang ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Yes / No</source>
        <translation>Ja / Nein</translation>
    </message>
    <message>
        <source>Rotate question</source>
        <translation>Frage zum Drehen</translation>
    </message>
    <message>
        <source>Rotate the image?</source>
        <translation>Das Bild drehen?</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Save / Don&apos;t save / Cancel</source>
        <translation>Speichern / Nicht speichern / Abbrechen</translation>
    </message>
    <message>
        <source>Background processing</source>
        <translation>Verarbeitung im Hintergrund</translation>
    </message>
    <message>
        <source>The image is still being processed.</source>
        <translation>Das Bild wird noch verarbeitet.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>Host warning</source>
        <translation>Hinweis zur Host-Anwendung</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>About Sorel</source>
        <translation>Info zu Sorel</translation>
    </message>
    <message>
        <source>Folder chooser</source>
        <translation>Ordnerauswahl</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>UtilsDll showcase</source>
        <translation>UtilsDll-Schaufenster</translation>
    </message>
    <message>
        <source>Language (%1):</source>
        <translation>Sprache (%1):</translation>
    </message>
    <message>
        <source>Dialogs</source>
        <translation>Dialoge</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnen</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>Archive</translation>
    </message>
    <message>
        <source>SOAP</source>
        <translation>SOAP</translation>
    </message>
    <message>
        <source>Run on a temporary settings store</source>
        <translation>Mit einem temporären Einstellungsspeicher arbeiten</translation>
    </message>
</context>
<context>
    <name>SoapPage</name>
    <message>
        <source>Waiting for the answer...</source>
        <translation>Warten auf die Antwort...</translation>
    </message>
    <message>
        <source>Fault: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>No fault.</source>
        <translation>Kein Fehler.</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>HTTPS</source>
        <translation>HTTPS</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Methode</translation>
    </message>
    <message>
        <source>Namespace</source>
        <translation>Namensraum</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>HTTPS verwenden</translation>
    </message>
    <message>
        <source>Send the request</source>
        <translation>Anfrage senden</translation>
    </message>
    <message>
        <source>The request envelope</source>
        <translation>Der Umschlag der Anfrage</translation>
    </message>
    <message>
        <source>The response envelope</source>
        <translation>Der Umschlag der Antwort</translation>
    </message>
</context>
<context>
    <name>ToolsPage</name>
    <message numerus="yes">
        <source>&quot;%1&quot; (shown %n time(s))</source>
        <translation>
            <numerusform>„%1“ (%n-mal angezeigt)</numerusform>
            <numerusform>„%1“ (%n-mal angezeigt)</numerusform>
        </translation>
    </message>
    <message>
        <source>The seven tool cursors</source>
        <translation>Die sieben Werkzeugzeiger</translation>
    </message>
    <message>
        <source>A tool line, tiled and stretched</source>
        <translation>Eine Werkzeuglinie, gekachelt und gestreckt</translation>
    </message>
    <message>
        <source>An icon ignoring, keeping and expanding its aspect</source>
        <translation>Ein Symbol, das sein Seitenverhältnis ignoriert, beibehält und ausdehnt</translation>
    </message>
    <message>
        <source>A debounced field: the text below follows once typing pauses</source>
        <translation>Ein entprelltes Feld: Der Text darunter folgt, sobald die Eingabe pausiert</translation>
    </message>
</context>
</TS>

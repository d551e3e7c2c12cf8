<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Actions</name>
    <message>
        <source>&amp;New from Template…</source>
        <translation>&amp;Neu aus Vorlage…</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>&amp;Revert to Saved</source>
        <translation>&amp;Zurück zum Gespeicherten</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Select &amp;Nothing</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>Copy &amp;Frame</source>
        <translation>B&amp;ild kopieren</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
    <message>
        <source>To the &amp;Start</source>
        <translation>An den An&amp;fang</translation>
    </message>
    <message>
        <source>To the &amp;End</source>
        <translation>Ans &amp;Ende</translation>
    </message>
    <message>
        <source>One Frame &amp;Back</source>
        <translation>Ein Bild &amp;zurück</translation>
    </message>
    <message>
        <source>One Frame &amp;Forward</source>
        <translation>Ein Bild &amp;vor</translation>
    </message>
    <message>
        <source>One Second Back</source>
        <translation>Eine Sekunde zurück</translation>
    </message>
    <message>
        <source>One Second Forward</source>
        <translation>Eine Sekunde vor</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Actual Pixels</source>
        <translation>&amp;Tatsächliche Pixel</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>&amp;Safe Areas</source>
        <translation>&amp;Sichere Bereiche</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Fin&amp;dings</source>
        <translation>&amp;Befunde</translation>
    </message>
    <message>
        <source>&amp;Changes by Others</source>
        <translation>&amp;Fremde Änderungen</translation>
    </message>
    <message>
        <source>&amp;JSON</source>
        <translation>&amp;JSON</translation>
    </message>
    <message>
        <source>As the &amp;Desktop</source>
        <translation>Wie der &amp;Desktop</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>D&amp;unkel</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>Add &amp;Scene</source>
        <translation>&amp;Szene hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;Text</source>
        <translation>&amp;Text hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;Device</source>
        <translation>&amp;Gerät hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;Image</source>
        <translation>&amp;Bild hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;Video</source>
        <translation>&amp;Video hinzufügen</translation>
    </message>
    <message>
        <source>Add S&amp;hape</source>
        <translation>&amp;Form hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;Fill</source>
        <translation>F&amp;läche hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Commands…</source>
        <translation>&amp;Befehle…</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts…</source>
        <translation>&amp;Tastenkürzel…</translation>
    </message>
    <message>
        <source>Motion &amp;Presets</source>
        <translation>&amp;Bewegungen</translation>
    </message>
    <message>
        <source>Set up &amp;Agents…</source>
        <translation>&amp;Agenten einrichten…</translation>
    </message>
    <message>
        <source>Check for &amp;Updates…</source>
        <translation>Nach &amp;Updates suchen…</translation>
    </message>
    <message>
        <source>&amp;About Tavix</source>
        <translation>Über &amp;Tavix</translation>
    </message>
</context>
<context>
    <name>AgentSheet</name>
    <message>
        <source>Install Globally</source>
        <translation>Für alle Projekte</translation>
    </message>
    <message>
        <source>Install for a Project…</source>
        <translation>Für ein Projekt…</translation>
    </message>
    <message>
        <source>Set up Agents</source>
        <translation>Agenten einrichten</translation>
    </message>
    <message>
        <source>Agents write and mend compositions with the command tavix. Choose those that may use it.</source>
        <translation>Agenten schreiben und verbessern Kompositionen mit dem Befehl tavix. Wähle, welche ihn benutzen dürfen.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1 (nicht gefunden)</translation>
    </message>
    <message>
        <source>Installing…</source>
        <translation>Wird installiert…</translation>
    </message>
    <message>
        <source>Install for a Project</source>
        <translation>Für ein Projekt installieren</translation>
    </message>
</context>
<context>
    <name>ChangesPanel</name>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Entfernt</translation>
    </message>
    <message>
        <source>Moved</source>
        <translation>Verschoben</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>What agents and other programs change in the file while it is open here is listed here.</source>
        <translation>Hier steht, was Agenten und andere Programme an der Datei ändern, während sie offen ist.</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Changes by other programs</source>
        <translation>Änderungen anderer Programme</translation>
    </message>
    <message>
        <source>Takes back all that was changed together with what is chosen.</source>
        <translation>Nimmt alles zurück, was zusammen mit dem Gewählten geändert wurde.</translation>
    </message>
    <message>
        <source>1 change</source>
        <translation>1 Änderung</translation>
    </message>
    <message>
        <source>%1 changes</source>
        <translation>%1 Änderungen</translation>
    </message>
    <message>
        <source>%1 at %2</source>
        <translation>%1 um %2</translation>
    </message>
    <message>
        <source>Take Back Changes</source>
        <translation>Änderungen zurücknehmen</translation>
    </message>
</context>
<context>
    <name>CommandPalette</name>
    <message>
        <source>Search commands</source>
        <translation>Befehle suchen</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
</context>
<context>
    <name>CurveEditor</name>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
</context>
<context>
    <name>Drops</name>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
</context>
<context>
    <name>EditorView</name>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren…</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Edited</source>
        <translation>Bearbeitet</translation>
    </message>
</context>
<context>
    <name>EngineProgram</name>
    <message>
        <source>The command tavix is not beside this program, nor along the search path; install Tavix again.</source>
        <translation>Der Befehl tavix liegt weder neben diesem Programm noch im Suchpfad; installiere Tavix erneut.</translation>
    </message>
</context>
<context>
    <name>ExportRow</name>
    <message>
        <source>Export finished</source>
        <translation>Export beendet</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 waits</source>
        <translation>%1 wartet</translation>
    </message>
    <message>
        <source>Exported %1.</source>
        <translation>%1 ist exportiert.</translation>
    </message>
    <message>
        <source>%1 could not be exported.</source>
        <translation>%1 konnte nicht exportiert werden.</translation>
    </message>
    <message>
        <source>%1 was stopped.</source>
        <translation>%1 wurde angehalten.</translation>
    </message>
    <message>
        <source>Exporting %1, about %2 left</source>
        <translation>%1 wird exportiert, noch etwa %2</translation>
    </message>
    <message>
        <source>Exporting %1…</source>
        <translation>%1 wird exportiert…</translation>
    </message>
</context>
<context>
    <name>ExportSheet</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Animated GIF</source>
        <translation>Animiertes GIF</translation>
    </message>
    <message>
        <source>As the Film</source>
        <translation>Wie der Film</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Balanced</source>
        <translation>Ausgewogen</translation>
    </message>
    <message>
        <source>Best</source>
        <translation>Am besten</translation>
    </message>
    <message>
        <source>Usual for the Codec</source>
        <translation>Üblich für den Codec</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>Bit Rate</source>
        <translation>Bitrate</translation>
    </message>
    <message>
        <source> Mbit/s</source>
        <translation> Mbit/s</translation>
    </message>
    <message>
        <source>&amp;Format</source>
        <translation>&amp;Format</translation>
    </message>
    <message>
        <source>&amp;Codec</source>
        <translation>&amp;Codec</translation>
    </message>
    <message>
        <source>F&amp;ile</source>
        <translation>D&amp;atei</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>&amp;Effort</source>
        <translation>&amp;Aufwand</translation>
    </message>
    <message>
        <source>At the same rate: quicker, or better pictures.</source>
        <translation>Bei gleicher Rate: schneller oder bessere Bilder.</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Rate</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren…</translation>
    </message>
    <message>
        <source>%1 × %2 pixels, %3 frames a second, %4 s, %5</source>
        <translation>%1 × %2 Pixel, %3 Bilder je Sekunde, %4 s, %5</translation>
    </message>
    <message>
        <source>with sound</source>
        <translation>mit Ton</translation>
    </message>
    <message>
        <source>no sound</source>
        <translation>ohne Ton</translation>
    </message>
    <message>
        <source>Estimating…</source>
        <translation>Wird geschätzt…</translation>
    </message>
    <message>
        <source>About %1, in about %2 on this machine</source>
        <translation>Etwa %1, in etwa %2 auf diesem Rechner</translation>
    </message>
</context>
<context>
    <name>FindingsPanel</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Nothing is found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Beheben</translation>
    </message>
    <message>
        <source>Repair All</source>
        <translation>Alle beheben</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Mends all that is certain and changes nothing that was meant.</source>
        <translation>Behebt alles, was sicher ist, und ändert nichts Gewolltes.</translation>
    </message>
    <message>
        <source>Draws every frame small and looks for flashes, black or frozen stretches and unreadable text.</source>
        <translation>Zeichnet jedes Bild klein und sucht nach Blitzen, schwarzen oder stehenden Stellen und unlesbarem Text.</translation>
    </message>
    <message>
        <source>Repair Finding</source>
        <translation>Befund beheben</translation>
    </message>
    <message>
        <source>1 error</source>
        <translation>1 Fehler</translation>
    </message>
    <message>
        <source>%1 errors</source>
        <translation>%1 Fehler</translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>1 Warnung</translation>
    </message>
    <message>
        <source>%1 warnings</source>
        <translation>%1 Warnungen</translation>
    </message>
    <message>
        <source>%1 muted</source>
        <translation>%1 stumm</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Wird geprüft…</translation>
    </message>
    <message>
        <source>Stop (%1 %)</source>
        <translation>Anhalten (%1 %)</translation>
    </message>
    <message>
        <source>Check Frames</source>
        <translation>Bilder prüfen</translation>
    </message>
</context>
<context>
    <name>GalleryWindow</name>
    <message>
        <source>Motion Presets</source>
        <translation>Bewegungen</translation>
    </message>
</context>
<context>
    <name>GradientBar</name>
    <message>
        <source>Stops of the gradient</source>
        <translation>Haltepunkte des Verlaufs</translation>
    </message>
    <message>
        <source>Click beside the stops to add one, Delete takes it away.</source>
        <translation>Ein Klick daneben fügt einen Haltepunkt hinzu, Entf nimmt ihn weg.</translation>
    </message>
</context>
<context>
    <name>Inspector</name>
    <message>
        <source>%1 in hexadecimal digits</source>
        <translation>%1 in Hexadezimalziffern</translation>
    </message>
    <message>
        <source>%1, set by a preset</source>
        <translation>%1, von einer Vorlage bestimmt</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Choose a colour, here or anywhere on the screen</source>
        <translation>Farbe wählen, hier oder irgendwo auf dem Bildschirm</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Datei wählen</translation>
    </message>
    <message>
        <source>Choose a file…</source>
        <translation>Datei wählen…</translation>
    </message>
    <message>
        <source>Clips (*.mp4 *.mov *.webm *.mkv)</source>
        <translation>Clips (*.mp4 *.mov *.webm *.mkv)</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Fonts (*.ttf *.otf *.ttc)</source>
        <translation>Schriften (*.ttf *.otf *.ttc)</translation>
    </message>
    <message>
        <source>Gradient</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Hand-made</source>
        <translation>Von Hand</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Keyframe of %1 before</source>
        <translation>Keyframe von %1 davor</translation>
    </message>
    <message>
        <source>Keyframe of %1 here</source>
        <translation>Keyframe von %1 hier</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Verschieden</translation>
    </message>
    <message>
        <source>Next keyframe of %1</source>
        <translation>Nächster Keyframe von %1</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>Keine Datei</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.webp *.heic)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.webp *.heic)</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Preset&apos;s own</source>
        <translation>Wie in der Vorlage</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Reset %1 to its default</source>
        <translation>%1 auf den Standard zurücksetzen</translation>
    </message>
    <message>
        <source>Set by the layer&apos;s motion preset; a change here is kept in its place.</source>
        <translation>Von der Bewegungsvorlage der Ebene bestimmt; eine Änderung hier tritt an ihre Stelle.</translation>
    </message>
    <message>
        <source>Sounds (*.mp3 *.m4a *.wav *.flac *.ogg *.aac)</source>
        <translation>Klänge (*.mp3 *.m4a *.wav *.flac *.ogg *.aac)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The theme&apos;s</source>
        <translation>Die des Themas</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thema</translation>
    </message>
    <message>
        <source>This item has hand-authored values. Choose a preset to replace them with editable semantic controls.</source>
        <translation>Dieses Element hat von Hand geschriebene Werte. Eine Vorlage ersetzt sie durch Regler mit Namen.</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Stärke</translation>
    </message>
</context>
<context>
    <name>InspectorPanel</name>
    <message>
        <source>Inspector</source>
        <translation>Inspektor</translation>
    </message>
    <message>
        <source>Choose Motion…</source>
        <translation>Bewegung wählen…</translation>
    </message>
    <message>
        <source>Add Effect</source>
        <translation>Effekt hinzufügen</translation>
    </message>
    <message>
        <source>Find Beats</source>
        <translation>Takt finden</translation>
    </message>
    <message>
        <source>Listens to the music, and sets the tempo and the first beat.</source>
        <translation>Hört die Musik an und setzt Tempo und ersten Schlag.</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>Delete Keyframe</source>
        <translation>Keyframe löschen</translation>
    </message>
    <message>
        <source>Add Keyframe</source>
        <translation>Keyframe hinzufügen</translation>
    </message>
</context>
<context>
    <name>JsonPanel</name>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Whole Document</source>
        <translation>Ganzes Dokument</translation>
    </message>
    <message>
        <source>What is shown</source>
        <translation>Was gezeigt wird</translation>
    </message>
    <message>
        <source>Document as JSON</source>
        <translation>Dokument als JSON</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Edit JSON</source>
        <translation>JSON bearbeiten</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Not a Tavix composition — open a .tavixcomp bundle.</source>
        <translation>Keine Tavix-Komposition — öffne ein .tavixcomp-Bündel.</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Set up Agents</source>
        <translation>Agenten einrichten</translation>
    </message>
    <message>
        <source>Tavix %1</source>
        <translation>Tavix %1</translation>
    </message>
    <message>
        <source>Tavix is updated with the other packages of this machine, by its software manager.</source>
        <translation>Tavix wird mit den anderen Paketen dieses Rechners durch dessen Softwareverwaltung aktualisiert.</translation>
    </message>
    <message>
        <source>Turns a document into a finished product video.</source>
        <translation>Macht aus einem Dokument ein fertiges Produktvideo.</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
</context>
<context>
    <name>MenuBar</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Erscheinungsbild</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>MotionGallery</name>
    <message>
        <source>Search %1 motions</source>
        <translation>%1 Bewegungen durchsuchen</translation>
    </message>
    <message>
        <source>Search motions</source>
        <translation>Bewegungen suchen</translation>
    </message>
    <message>
        <source>Motions</source>
        <translation>Bewegungen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>No motion is called that.</source>
        <translation>Keine Bewegung heißt so.</translation>
    </message>
    <message>
        <source>A click gives the motion to the selected device.</source>
        <translation>Ein Klick gibt die Bewegung dem gewählten Gerät.</translation>
    </message>
    <message>
        <source>Select a device to give it a motion.</source>
        <translation>Wähle ein Gerät, um ihm eine Bewegung zu geben.</translation>
    </message>
    <message>
        <source>“%1” takes the place of the device&apos;s own motion.</source>
        <translation>„%1“ ersetzt die eigene Bewegung des Geräts.</translation>
    </message>
    <message>
        <source>Motion “%1”</source>
        <translation>Bewegung „%1“</translation>
    </message>
    <message>
        <source>“%1” is applied.</source>
        <translation>„%1“ ist angewendet.</translation>
    </message>
</context>
<context>
    <name>NewProjectSheet</name>
    <message>
        <source>Create…</source>
        <translation>Anlegen…</translation>
    </message>
    <message>
        <source>New from Template</source>
        <translation>Neu aus Vorlage</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>Neues Projekt</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Changes to “%1” were not saved when Tavix ended at %2.</source>
        <translation>Änderungen an „%1“ waren nicht gespeichert, als Tavix um %2 endete.</translation>
    </message>
    <message>
        <source>Bring Them Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Give Them Up</source>
        <translation>Aufgeben</translation>
    </message>
    <message>
        <source>Another program changed what you changed too: %1</source>
        <translation>Ein anderes Programm hat geändert, was auch du geändert hast: %1</translation>
    </message>
    <message>
        <source>Another program changed %1 values that you changed too, the first one: %2</source>
        <translation>Ein anderes Programm hat %1 Werte geändert, die auch du geändert hast, zuerst: %2</translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation>Meine behalten</translation>
    </message>
    <message>
        <source>Take Theirs</source>
        <translation>Fremde nehmen</translation>
    </message>
    <message>
        <source>Changed by another program: %1.</source>
        <translation>Von einem anderen Programm geändert: %1.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source>Assign</source>
        <translation>Zuweisen</translation>
    </message>
    <message>
        <source>No Key</source>
        <translation>Keine Taste</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Search commands and keys</source>
        <translation>Befehle und Tasten suchen</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>New key</source>
        <translation>Neue Taste</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>Alle zurücksetzen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 belongs to “%2”, which loses it.</source>
        <translation>%1 gehört zu „%2“ und geht dort verloren.</translation>
    </message>
</context>
<context>
    <name>SidePanel</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>StageTool</name>
    <message>
        <source>%1 · %2 × %3</source>
        <translation>%1 · %2 × %3</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
    <message>
        <source>%1 × %2 pixels at %3, %4</source>
        <translation>%1 × %2 Pixel bei %3, %4</translation>
    </message>
</context>
<context>
    <name>TextInPlace</name>
    <message>
        <source>Text of the layer</source>
        <translation>Text der Ebene</translation>
    </message>
</context>
<context>
    <name>Timeline</name>
    <message>
        <source>%1 of %2 seconds</source>
        <translation>%1 von %2 Sekunden</translation>
    </message>
    <message>
        <source>%1 to %2 seconds</source>
        <translation>%1 bis %2 Sekunden</translation>
    </message>
    <message>
        <source>%1 to %2 seconds, %3 keyframes</source>
        <translation>%1 bis %2 Sekunden, %3 Keyframes</translation>
    </message>
    <message>
        <source>%1 to %2 seconds, a transition of %3 seconds into the next</source>
        <translation>%1 bis %2 Sekunden, danach ein Übergang von %3 Sekunden</translation>
    </message>
    <message>
        <source>Keyframe of %1 at %2 seconds</source>
        <translation>Keyframe von %1 bei %2 Sekunden</translation>
    </message>
    <message>
        <source>Playhead</source>
        <translation>Abspielposition</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
    </message>
    <message>
        <source>Sound %1 at %2 seconds</source>
        <translation>Klang %1 bei %2 Sekunden</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>Drop</translation>
    </message>
</context>
<context>
    <name>TimelineCanvas</name>
    <message>
        <source>Timeline</source>
        <translation>Zeitleiste</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Split Layer</source>
        <translation>Ebene teilen</translation>
    </message>
    <message>
        <source>Select a layer, and choose what to animate in its menu.</source>
        <translation>Wähle eine Ebene und in ihrem Menü, was sich bewegen soll.</translation>
    </message>
    <message>
        <source>Nudge</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Nach vorn</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Nach hinten</translation>
    </message>
    <message>
        <source>Trim Layer</source>
        <translation>Ebene kürzen</translation>
    </message>
    <message>
        <source>Delete Keyframe</source>
        <translation>Keyframe löschen</translation>
    </message>
    <message>
        <source>Delete Layer</source>
        <translation>Ebene löschen</translation>
    </message>
    <message>
        <source>Delete Scene</source>
        <translation>Szene löschen</translation>
    </message>
    <message>
        <source>Add Keyframe</source>
        <translation>Keyframe hinzufügen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>There are no layers on the clipboard.</source>
        <translation>In der Zwischenablage sind keine Ebenen.</translation>
    </message>
    <message>
        <source>Extend to Scene End</source>
        <translation>Bis Szenenende verlängern</translation>
    </message>
    <message>
        <source>Animate</source>
        <translation>Animieren</translation>
    </message>
    <message>
        <source>Animate %1</source>
        <translation>%1 animieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Duplicate Scene</source>
        <translation>Szene duplizieren</translation>
    </message>
    <message>
        <source>Move Earlier</source>
        <translation>Nach vorn verschieben</translation>
    </message>
    <message>
        <source>Move Later</source>
        <translation>Nach hinten verschieben</translation>
    </message>
    <message>
        <source>Cut without Transition</source>
        <translation>Schnitt ohne Übergang</translation>
    </message>
    <message>
        <source>Fade into the Next Scene</source>
        <translation>In die nächste Szene blenden</translation>
    </message>
    <message>
        <source>Change Ease</source>
        <translation>Verlauf ändern</translation>
    </message>
    <message>
        <source>Spring</source>
        <translation>Feder</translation>
    </message>
    <message>
        <source>Edit Curve…</source>
        <translation>Kurve bearbeiten…</translation>
    </message>
</context>
<context>
    <name>TimelineGutter</name>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
    <message>
        <source>Go to the keyframe before</source>
        <translation>Zum vorigen Keyframe</translation>
    </message>
    <message>
        <source>Set a keyframe at the playhead (K)</source>
        <translation>Keyframe am Abspielkopf setzen (K)</translation>
    </message>
    <message>
        <source>Go to the next keyframe</source>
        <translation>Zum nächsten Keyframe</translation>
    </message>
</context>
<context>
    <name>TimelinePanel</name>
    <message>
        <source>Snap</source>
        <translation>Einrasten</translation>
    </message>
    <message>
        <source>Dragged things stick to the playhead, to ends and to beats. Hold Ctrl to drag freely.</source>
        <translation>Gezogenes rastet an Abspielkopf, Enden und Schlägen ein. Mit Strg frei ziehen.</translation>
    </message>
    <message>
        <source>Show more of the film (−)</source>
        <translation>Mehr vom Film zeigen (−)</translation>
    </message>
    <message>
        <source>Show it larger (+)</source>
        <translation>Größer zeigen (+)</translation>
    </message>
    <message>
        <source>Zoom of the timeline</source>
        <translation>Vergrößerung der Zeitleiste</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
</context>
<context>
    <name>UnsavedChanges</name>
    <message>
        <source>Do you want to save the changes you made to “%1”?</source>
        <translation>Möchtest du die Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>Your changes will be lost if you don’t save them.</source>
        <translation>Deine Änderungen gehen verloren, wenn du sie nicht speicherst.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Don’t Save</source>
        <translation>Nicht speichern</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>New from Template</source>
        <translation>Neu aus Vorlage</translation>
    </message>
    <message>
        <source>Set up agents</source>
        <translation>Agenten einrichten</translation>
    </message>
    <message>
        <source>Browse every motion preset and video example</source>
        <translation>Alle Bewegungen und Beispiele ansehen</translation>
    </message>
    <message>
        <source>Recent Projects</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>No recent projects</source>
        <translation>Noch keine Projekte</translation>
    </message>
</context>
<context>
    <name>WrittenPlace</name>
    <message>
        <source>The film</source>
        <translation>Der Film</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Edits compositions of product videos in a window.</source>
        <translation>Bearbeitet Kompositionen von Produktvideos in einem Fenster.</translation>
    </message>
    <message>
        <source>A .tavixcomp bundle to open.</source>
        <translation>Ein .tavixcomp-Bündel zum Öffnen.</translation>
    </message>
</context>
</TS>

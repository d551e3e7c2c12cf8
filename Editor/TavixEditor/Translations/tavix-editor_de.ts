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
        <source>Add &amp;Image…</source>
        <translation>&amp;Bild hinzufügen…</translation>
    </message>
    <message>
        <source>Add &amp;Video…</source>
        <translation>&amp;Video hinzufügen…</translation>
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
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>Select &amp;All Layers</source>
        <translation>&amp;Alle Ebenen auswählen</translation>
    </message>
    <message>
        <source>Find &amp;Beats</source>
        <translation>&amp;Taktschläge finden</translation>
    </message>
    <message>
        <source>Add &amp;Music…</source>
        <translation>&amp;Musik hinzufügen…</translation>
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
    <message>
        <source>No command is called so.</source>
        <translation>So heißt kein Befehl.</translation>
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
    <name>Document</name>
    <message>
        <source>Accent</source>
        <translation>Akzent</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Amplitude</source>
        <translation>Ausschlag</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>Animation</translation>
    </message>
    <message>
        <source>At</source>
        <translation>Bei</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Base padding</source>
        <translation>Grundabstand</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Unschärfe</translation>
    </message>
    <message>
        <source>Blur in</source>
        <translation>Aus der Unschärfe</translation>
    </message>
    <message>
        <source>Blur radius</source>
        <translation>Weichheit</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Camera distance</source>
        <translation>Kameraabstand</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>Leinwand</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Chance</source>
        <translation>Zufall</translation>
    </message>
    <message>
        <source>Char cascade</source>
        <translation>Buchstabenfall</translation>
    </message>
    <message>
        <source>Chromatic aberration</source>
        <translation>Farbsaum</translation>
    </message>
    <message>
        <source>Color controls</source>
        <translation>Farbregler</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Contain</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Corner</source>
        <translation>Ecke</translation>
    </message>
    <message>
        <source>Corner radius</source>
        <translation>Eckenradius</translation>
    </message>
    <message>
        <source>Cosmic orange</source>
        <translation>Kosmisches Orange</translation>
    </message>
    <message>
        <source>Cover</source>
        <translation>Füllen</translation>
    </message>
    <message>
        <source>Cross zoom</source>
        <translation>Kreuzzoom</translation>
    </message>
    <message>
        <source>Crosswarp</source>
        <translation>Verzerrte Blende</translation>
    </message>
    <message>
        <source>Cue</source>
        <translation>Klang</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Damping</source>
        <translation>Dämpfung</translation>
    </message>
    <message>
        <source>Deep blue</source>
        <translation>Tiefblau</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Dreamy zoom</source>
        <translation>Traumzoom</translation>
    </message>
    <message>
        <source>Drift</source>
        <translation>Schweben</translation>
    </message>
    <message>
        <source>Drift period</source>
        <translation>Dauer des Schwebens</translation>
    </message>
    <message>
        <source>Duotone</source>
        <translation>Zweiton</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Elegant</source>
        <translation>Elegant</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Emphasis</source>
        <translation>Hervorhebung</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Auftritt</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Abgang</translation>
    </message>
    <message>
        <source>Fade</source>
        <translation>Überblenden</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Fade up</source>
        <translation>Aufblenden</translation>
    </message>
    <message>
        <source>Field of view</source>
        <translation>Bildwinkel</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Füllung</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Gehäusefarbe</translation>
    </message>
    <message>
        <source>First beat</source>
        <translation>Erster Schlag</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassung</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Umdrehen</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Font weight</source>
        <translation>Schriftstärke</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Frame path</source>
        <translation>Rahmenbild</translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Glacial</source>
        <translation>Sehr langsam</translation>
    </message>
    <message>
        <source>Glow</source>
        <translation>Leuchten</translation>
    </message>
    <message>
        <source>Heavy</source>
        <translation>Schwer</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Highlight</source>
        <translation>Markierung</translation>
    </message>
    <message>
        <source>Highlight color</source>
        <translation>Markierungsfarbe</translation>
    </message>
    <message>
        <source>Hold last frame</source>
        <translation>Letztes Bild halten</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>In space</source>
        <translation>Im Raum</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Karaoke fill</source>
        <translation>Karaoke</translation>
    </message>
    <message>
        <source>Key light</source>
        <translation>Hauptlicht</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Kinetic</source>
        <translation>Bewegt</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Licht</translation>
    </message>
    <message>
        <source>Light intensity</source>
        <translation>Lichtstärke</translation>
    </message>
    <message>
        <source>Line rise</source>
        <translation>Zeilen steigen</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Gleichmäßig</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Max width</source>
        <translation>Größte Breite</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Motion blur</source>
        <translation>Bewegungsunschärfe</translation>
    </message>
    <message>
        <source>Move X</source>
        <translation>X-Weg</translation>
    </message>
    <message>
        <source>Move Y</source>
        <translation>Y-Weg</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Korn</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Params</source>
        <translation>Stärken</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>Verpixeln</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Placement</source>
        <translation>Platzierung</translation>
    </message>
    <message>
        <source>Pose damping</source>
        <translation>Dämpfung der Haltung</translation>
    </message>
    <message>
        <source>Pose response</source>
        <translation>Trägheit der Haltung</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Punchy</source>
        <translation>Kräftig</translation>
    </message>
    <message>
        <source>Push</source>
        <translation>Schieben</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Rect</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Reel</source>
        <translation>Reel</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Response</source>
        <translation>Trägheit</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Ripple</source>
        <translation>Wellen</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Größenfaktor</translation>
    </message>
    <message>
        <source>Scale pop</source>
        <translation>Aufspringen</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Screen corner radius</source>
        <translation>Eckenradius des Bildschirms</translation>
    </message>
    <message>
        <source>Seed</source>
        <translation>Startzahl</translation>
    </message>
    <message>
        <source>Semibold</source>
        <translation>Halbfett</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>Silber</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Slam</source>
        <translation>Aufprall</translation>
    </message>
    <message>
        <source>Slide down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Slide left</source>
        <translation>Nach links</translation>
    </message>
    <message>
        <source>Slide right</source>
        <translation>Nach rechts</translation>
    </message>
    <message>
        <source>Slide up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>Weich</translation>
    </message>
    <message>
        <source>Snap</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Klangdatei</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
    <message>
        <source>Source rect</source>
        <translation>Ausschnitt</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo der Bewegung</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Start at</source>
        <translation>Beginnt bei</translation>
    </message>
    <message>
        <source>Still</source>
        <translation>Standbild</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Kippung</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Tint</source>
        <translation>Tönung</translation>
    </message>
    <message>
        <source>Token</source>
        <translation>Stelle</translation>
    </message>
    <message>
        <source>Tracking</source>
        <translation>Laufweite</translation>
    </message>
    <message>
        <source>Tracking in</source>
        <translation>Laufweite zieht sich zusammen</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>Umformung</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>Übergang</translation>
    </message>
    <message>
        <source>Trim end</source>
        <translation>Ende kürzen</translation>
    </message>
    <message>
        <source>Trim start</source>
        <translation>Anfang kürzen</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Drehwinkel</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation>Vignette</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Wipe</source>
        <translation>Wischen</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>Word pop</source>
        <translation>Wörter springen auf</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Rise Up</source>
        <translation>Aufsteigen</translation>
    </message>
    <message>
        <source>Rise Soft</source>
        <translation>Sanft aufsteigen</translation>
    </message>
    <message>
        <source>Rise Spin</source>
        <translation>Drehend aufsteigen</translation>
    </message>
    <message>
        <source>Rise Yaw</source>
        <translation>Aufsteigen, Gierdrehung</translation>
    </message>
    <message>
        <source>Reveal Turn</source>
        <translation>Enthüllende Drehung</translation>
    </message>
    <message>
        <source>Lay Rise</source>
        <translation>Aus dem Liegen aufstehen</translation>
    </message>
    <message>
        <source>Lay Rise Spin</source>
        <translation>Aus dem Liegen mit Drehung</translation>
    </message>
    <message>
        <source>Corner Right Twirl</source>
        <translation>Wirbel aus der rechten Ecke</translation>
    </message>
    <message>
        <source>Corner Left</source>
        <translation>Aus der linken Ecke</translation>
    </message>
    <message>
        <source>Dolly In</source>
        <translation>Kamerafahrt</translation>
    </message>
    <message>
        <source>Drop Bounce</source>
        <translation>Fallen und federn</translation>
    </message>
    <message>
        <source>Drop Heavy</source>
        <translation>Schwer fallen</translation>
    </message>
    <message>
        <source>Slide Left</source>
        <translation>Von links gleiten</translation>
    </message>
    <message>
        <source>Slide Right Lean</source>
        <translation>Von rechts gleiten, geneigt</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Heranzoomen</translation>
    </message>
    <message>
        <source>Zoom Overshoot</source>
        <translation>Zoom mit Überschwung</translation>
    </message>
    <message>
        <source>Pop Elastic</source>
        <translation>Elastisch aufspringen</translation>
    </message>
    <message>
        <source>Jelly In</source>
        <translation>Wackelpudding</translation>
    </message>
    <message>
        <source>Fade Rise</source>
        <translation>Aufblenden und steigen</translation>
    </message>
    <message>
        <source>Blur In</source>
        <translation>Aus der Unschärfe</translation>
    </message>
    <message>
        <source>Materialize</source>
        <translation>Erscheinen</translation>
    </message>
    <message>
        <source>Flip In X</source>
        <translation>Klappen um X</translation>
    </message>
    <message>
        <source>Flip In Y</source>
        <translation>Klappen um Y</translation>
    </message>
    <message>
        <source>Door In</source>
        <translation>Tür auf</translation>
    </message>
    <message>
        <source>Billboard Flip</source>
        <translation>Umschlagende Tafel</translation>
    </message>
    <message>
        <source>Swing Drop</source>
        <translation>Schwingend fallen</translation>
    </message>
    <message>
        <source>Pendulum In</source>
        <translation>Als Pendel herein</translation>
    </message>
    <message>
        <source>Roll In</source>
        <translation>Hereinrollen</translation>
    </message>
    <message>
        <source>Cartwheel</source>
        <translation>Radschlag</translation>
    </message>
    <message>
        <source>Kick Flip</source>
        <translation>Kickflip</translation>
    </message>
    <message>
        <source>Helix Up</source>
        <translation>Schraube aufwärts</translation>
    </message>
    <message>
        <source>Spiral In</source>
        <translation>Spirale</translation>
    </message>
    <message>
        <source>Float Drift</source>
        <translation>Schwebend treiben</translation>
    </message>
    <message>
        <source>Slingshot</source>
        <translation>Schleuder</translation>
    </message>
    <message>
        <source>Elastic Side</source>
        <translation>Elastisch von der Seite</translation>
    </message>
    <message>
        <source>Rubber Entry</source>
        <translation>Gummiband</translation>
    </message>
    <message>
        <source>Peek Enter</source>
        <translation>Hereinlugen</translation>
    </message>
    <message>
        <source>Tilt Land</source>
        <translation>Geneigt landen</translation>
    </message>
    <message>
        <source>Dive From Cam</source>
        <translation>Aus der Kamera tauchen</translation>
    </message>
    <message>
        <source>Skew Slide</source>
        <translation>Schräg gleiten</translation>
    </message>
    <message>
        <source>Stretch Drop</source>
        <translation>Gestreckt fallen</translation>
    </message>
    <message>
        <source>Shutter Steps</source>
        <translation>Blendenschritte</translation>
    </message>
    <message>
        <source>Typewriter Steps</source>
        <translation>Schreibmaschinenschritte</translation>
    </message>
    <message>
        <source>Gravity Three-Bounce</source>
        <translation>Schwerkraft, dreimal federn</translation>
    </message>
    <message>
        <source>Glitch In</source>
        <translation>Störung herein</translation>
    </message>
    <message>
        <source>Snap Pop</source>
        <translation>Einschnappen</translation>
    </message>
    <message>
        <source>Rise Facedown Flip</source>
        <translation>Vom Bauch aufklappen</translation>
    </message>
    <message>
        <source>Wave Ride</source>
        <translation>Wellenritt</translation>
    </message>
    <message>
        <source>Moon Arc</source>
        <translation>Mondbogen</translation>
    </message>
    <message>
        <source>Arc Over</source>
        <translation>Im Bogen darüber</translation>
    </message>
    <message>
        <source>Orbit In</source>
        <translation>Umlauf herein</translation>
    </message>
    <message>
        <source>Tumble Diag</source>
        <translation>Schräg purzeln</translation>
    </message>
    <message>
        <source>Seesaw Land</source>
        <translation>Wippend landen</translation>
    </message>
    <message>
        <source>Edge Balance</source>
        <translation>Auf der Kante balancieren</translation>
    </message>
    <message>
        <source>Drop Roll Stand</source>
        <translation>Fallen, rollen, stehen</translation>
    </message>
    <message>
        <source>Sink Down</source>
        <translation>Versinken</translation>
    </message>
    <message>
        <source>Fall Back</source>
        <translation>Nach hinten fallen</translation>
    </message>
    <message>
        <source>Fly Up</source>
        <translation>Davonfliegen</translation>
    </message>
    <message>
        <source>Blast Off</source>
        <translation>Abheben</translation>
    </message>
    <message>
        <source>Zoom Out Fade</source>
        <translation>Wegzoomen und ausblenden</translation>
    </message>
    <message>
        <source>Shrink Corner</source>
        <translation>In die Ecke schrumpfen</translation>
    </message>
    <message>
        <source>Recede Away</source>
        <translation>Zurückweichen</translation>
    </message>
    <message>
        <source>Spin Out</source>
        <translation>Hinausdrehen</translation>
    </message>
    <message>
        <source>Door Out</source>
        <translation>Tür zu</translation>
    </message>
    <message>
        <source>Fold Away</source>
        <translation>Wegklappen</translation>
    </message>
    <message>
        <source>Topple Off</source>
        <translation>Umkippen</translation>
    </message>
    <message>
        <source>Slip Fall</source>
        <translation>Ausrutschen</translation>
    </message>
    <message>
        <source>Whip Left</source>
        <translation>Peitsche nach links</translation>
    </message>
    <message>
        <source>Glitch Out</source>
        <translation>Störung hinaus</translation>
    </message>
    <message>
        <source>Deflate</source>
        <translation>Luft ablassen</translation>
    </message>
    <message>
        <source>Park Left-To-Right</source>
        <translation>Von links nach rechts stellen</translation>
    </message>
    <message>
        <source>Park Face In</source>
        <translation>Seitlich stellen, Blick nach innen</translation>
    </message>
    <message>
        <source>Closeup Scan</source>
        <translation>Nahaufnahme abfahren</translation>
    </message>
    <message>
        <source>Scan Up</source>
        <translation>Aufwärts abfahren</translation>
    </message>
    <message>
        <source>Punch Top</source>
        <translation>Sprung nach oben</translation>
    </message>
    <message>
        <source>Punch Bottom</source>
        <translation>Sprung nach unten</translation>
    </message>
    <message>
        <source>Big Small Big</source>
        <translation>Groß, klein, groß</translation>
    </message>
    <message>
        <source>Flip Peek</source>
        <translation>Umschlagen und lugen</translation>
    </message>
    <message>
        <source>Lean Back Hold</source>
        <translation>Zurücklehnen und halten</translation>
    </message>
    <message>
        <source>Tilt Showcase</source>
        <translation>Geneigt zeigen</translation>
    </message>
    <message>
        <source>Nod</source>
        <translation>Nicken</translation>
    </message>
    <message>
        <source>Push Swap</source>
        <translation>Schiebend wechseln</translation>
    </message>
    <message>
        <source>Bounce Focus</source>
        <translation>Federnder Blickpunkt</translation>
    </message>
    <message>
        <source>Step Back Present</source>
        <translation>Zurücktreten und zeigen</translation>
    </message>
    <message>
        <source>Idle Drift</source>
        <translation>Ruhig treiben</translation>
    </message>
    <message>
        <source>Hover Float</source>
        <translation>Schweben</translation>
    </message>
    <message>
        <source>Breathe Zoom</source>
        <translation>Atmender Zoom</translation>
    </message>
    <message>
        <source>Shake Attn</source>
        <translation>Aufmerksam rütteln</translation>
    </message>
    <message>
        <source>Wobble Jelly</source>
        <translation>Wackeln</translation>
    </message>
    <message>
        <source>Pendulum Yaw</source>
        <translation>Pendelnd drehen</translation>
    </message>
    <message>
        <source>Figure Eight</source>
        <translation>Acht</translation>
    </message>
    <message>
        <source>Metronome</source>
        <translation>Metronom</translation>
    </message>
    <message>
        <source>Coin Spin Blur</source>
        <translation>Münzdrehung, unscharf</translation>
    </message>
    <message>
        <source>Pirouette</source>
        <translation>Pirouette</translation>
    </message>
    <message>
        <source>Gimbal Arc</source>
        <translation>Kardanbogen</translation>
    </message>
    <message>
        <source>Barrel Roll</source>
        <translation>Fassrolle</translation>
    </message>
    <message>
        <source>Snap Turns</source>
        <translation>Ruckhafte Drehungen</translation>
    </message>
    <message>
        <source>Lighthouse</source>
        <translation>Leuchtturm</translation>
    </message>
    <message>
        <source>Matrix Lean</source>
        <translation>Matrix-Neigung</translation>
    </message>
    <message>
        <source>Spotlight Lean</source>
        <translation>Scheinwerfer-Neigung</translation>
    </message>
    <message>
        <source>Carousel Orbit</source>
        <translation>Karussell</translation>
    </message>
    <message>
        <source>Zoom Thru</source>
        <translation>Hindurchzoomen</translation>
    </message>
    <message>
        <source>Depth Bob</source>
        <translation>In die Tiefe wippen</translation>
    </message>
    <message>
        <source>Slow Hero</source>
        <translation>Langsamer Held</translation>
    </message>
    <message>
        <source>Boomerang</source>
        <translation>Bumerang</translation>
    </message>
    <message>
        <source>Beauty Turn</source>
        <translation>Schöne Drehung</translation>
    </message>
    <message>
        <source>Whip Swap</source>
        <translation>Peitschend wechseln</translation>
    </message>
    <message>
        <source>Portal Dive</source>
        <translation>Durchs Portal</translation>
    </message>
    <message>
        <source>Macro Orbit</source>
        <translation>Makro-Umlauf</translation>
    </message>
    <message>
        <source>Edge Reveal</source>
        <translation>Über die Kante enthüllt</translation>
    </message>
    <message>
        <source>Rise Yaw 360 — No Blur</source>
        <translation>Aufsteigen, Gierdrehung 360, ohne Unschärfe</translation>
    </message>
    <message>
        <source>Fan deck</source>
        <translation>Fächer</translation>
    </message>
    <message>
        <source>UI burst</source>
        <translation>Ausbruch der Oberfläche</translation>
    </message>
    <message>
        <source>Orbit carousel</source>
        <translation>Umlaufendes Karussell</translation>
    </message>
    <message>
        <source>Colorway domino</source>
        <translation>Domino der Farben</translation>
    </message>
    <message>
        <source>Ecosystem handoff</source>
        <translation>Übergabe von Gerät zu Gerät</translation>
    </message>
    <message>
        <source>Infinite tunnel</source>
        <translation>Endloser Tunnel</translation>
    </message>
    <message>
        <source>Screen cascade</source>
        <translation>Kaskade der Bildschirme</translation>
    </message>
    <message>
        <source>Split focus</source>
        <translation>Geteilter Blick</translation>
    </message>
    <message>
        <source>Depth wave</source>
        <translation>Welle in die Tiefe</translation>
    </message>
    <message>
        <source>Entrances</source>
        <translation>Auftritte</translation>
    </message>
    <message>
        <source>Exits</source>
        <translation>Abgänge</translation>
    </message>
    <message>
        <source>In-Scene Moves</source>
        <translation>Bewegungen in der Szene</translation>
    </message>
    <message>
        <source>Showcases</source>
        <translation>Präsentationen</translation>
    </message>
    <message>
        <source>Tavix Originals</source>
        <translation>Tavix-Originale</translation>
    </message>
    <message>
        <source>Formations</source>
        <translation>Formationen</translation>
    </message>
    <message>
        <source>Single Device</source>
        <translation>Ein Gerät</translation>
    </message>
    <message>
        <source>Formation</source>
        <translation>Formation</translation>
    </message>
</context>
<context>
    <name>DocumentHelp</name>
    <message>
        <source>0 is grey, 1 changes nothing.</source>
        <translation>0 ist grau, 1 ändert nichts.</translation>
    </message>
    <message>
        <source>A device of the catalog, as `tavix presets devices` lists them.</source>
        <translation>Ein Gerät des Katalogs, wie `tavix presets devices` sie aufführt.</translation>
    </message>
    <message>
        <source>A key of the document&apos;s `fonts`, a font&apos;s name, a short name that `tavix presets fonts` lists, or a font file; the theme&apos;s when absent.</source>
        <translation>Ein Schlüssel aus `fonts` des Dokuments, der Name einer Schrift, ein Kurzname aus `tavix presets fonts` oder eine Schriftdatei; ohne Angabe die des Themas.</translation>
    </message>
    <message>
        <source>A name to speak of it.</source>
        <translation>Ein Name, um davon zu sprechen.</translation>
    </message>
    <message>
        <source>A picture of the device with a hole for its screen.</source>
        <translation>Ein Bild des Geräts mit einem Loch für seinen Bildschirm.</translation>
    </message>
    <message>
        <source>A shadow behind the letters.</source>
        <translation>Ein Schatten hinter den Buchstaben.</translation>
    </message>
    <message>
        <source>A sound of the catalog, as `tavix presets sounds` lists them, or a sound file.</source>
        <translation>Ein Klang des Katalogs, wie `tavix presets sounds` sie aufführt, oder eine Klangdatei.</translation>
    </message>
    <message>
        <source>Added to every channel.</source>
        <translation>Wird zu jedem Kanal addiert.</translation>
    </message>
    <message>
        <source>Chooses all that looks random.</source>
        <translation>Wählt alles, was zufällig aussieht.</translation>
    </message>
    <message>
        <source>Colour at the far end; the element&apos;s own when absent.</source>
        <translation>Farbe am fernen Ende; ohne Angabe die eigene des Elements.</translation>
    </message>
    <message>
        <source>Colour of a marker behind the words.</source>
        <translation>Farbe eines Markers hinter den Wörtern.</translation>
    </message>
    <message>
        <source>Colour of the body; named motions and formations leave it.</source>
        <translation>Farbe des Gehäuses; benannte Bewegungen und Formationen lassen sie stehen.</translation>
    </message>
    <message>
        <source>Colour of the letters.</source>
        <translation>Farbe der Buchstaben.</translation>
    </message>
    <message>
        <source>Colour of the words.</source>
        <translation>Farbe der Wörter.</translation>
    </message>
    <message>
        <source>Corner radius of the screen.</source>
        <translation>Eckenradius des Bildschirms.</translation>
    </message>
    <message>
        <source>Extra space between letters.</source>
        <translation>Zusätzlicher Raum zwischen den Buchstaben.</translation>
    </message>
    <message>
        <source>Frames per second: a number, or a fraction such as 30000/1001; 29.97 means that one.</source>
        <translation>Bilder je Sekunde: eine Zahl oder ein Bruch wie 30000/1001; 29.97 meint diesen.</translation>
    </message>
    <message>
        <source>Free space between the canvas&apos;s edge and the device at scale 1. It makes the size of a device in space too.</source>
        <translation>Freier Raum zwischen dem Rand der Leinwand und dem Gerät beim Größenfaktor 1. Er bestimmt auch die Größe eines Geräts im Raum.</translation>
    </message>
    <message>
        <source>From where the key light shines: x below 0 is from above, y above 0 from the left; z is not used.</source>
        <translation>Woher das Hauptlicht scheint: x unter 0 von oben, y über 0 von links; z wird nicht benutzt.</translation>
    </message>
    <message>
        <source>Height of the frames; even, for films.</source>
        <translation>Höhe der Bilder; für Filme gerade.</translation>
    </message>
    <message>
        <source>How bright the glow is.</source>
        <translation>Wie hell das Leuchten ist.</translation>
    </message>
    <message>
        <source>How dark it is.</source>
        <translation>Wie dunkel er ist.</translation>
    </message>
    <message>
        <source>How dark the edge gets; 1 is black in the corners at a radius of 1.</source>
        <translation>Wie dunkel der Rand wird; 1 ist bei Radius 1 schwarz in den Ecken.</translation>
    </message>
    <message>
        <source>How far a dreamyZoom turns.</source>
        <translation>Wie weit sich ein Traumzoom dreht.</translation>
    </message>
    <message>
        <source>How far a ripple throws, in pixels of a picture of 1080 lines.</source>
        <translation>Wie weit Wellen werfen, in Pixeln eines Bildes von 1080 Zeilen.</translation>
    </message>
    <message>
        <source>How far a ripple&apos;s wave runs in the whole transition, in radians.</source>
        <translation>Wie weit die Welle im ganzen Übergang läuft, im Bogenmaß.</translation>
    </message>
    <message>
        <source>How far a zoom goes.</source>
        <translation>Wie weit ein Zoom geht.</translation>
    </message>
    <message>
        <source>How far it goes: 0 not at all, 1 wholly.</source>
        <translation>Wie weit es geht: 0 gar nicht, 1 ganz.</translation>
    </message>
    <message>
        <source>How far it sways about its rest from side to side; half as far up and down.</source>
        <translation>Wie weit es um seine Ruhelage hin und her schwingt; auf und ab halb so weit.</translation>
    </message>
    <message>
        <source>How far red goes to one side and blue to the other.</source>
        <translation>Wie weit Rot zur einen und Blau zur anderen Seite geht.</translation>
    </message>
    <message>
        <source>How far the camera stands, in lengths of space. It changes the perspective and not the size.</source>
        <translation>Wie weit die Kamera entfernt ist, in Längen des Raums. Sie ändert die Perspektive, nicht die Größe.</translation>
    </message>
    <message>
        <source>How heavy the letters are.</source>
        <translation>Wie stark die Buchstaben sind.</translation>
    </message>
    <message>
        <source>How it gives way to the next scene.</source>
        <translation>Wie sie der nächsten Szene weicht.</translation>
    </message>
    <message>
        <source>How its progress runs.</source>
        <translation>Wie ihr Fortschritt verläuft.</translation>
    </message>
    <message>
        <source>How large the device is at the playhead.</source>
        <translation>Wie groß das Gerät an der Abspielmarke ist.</translation>
    </message>
    <message>
        <source>How long a pose takes to arrive.</source>
        <translation>Wie lange eine Haltung braucht, bis sie ankommt.</translation>
    </message>
    <message>
        <source>How long it is, its transition to the next scene included.</source>
        <translation>Wie lang sie ist, mit ihrem Übergang zur nächsten Szene.</translation>
    </message>
    <message>
        <source>How long it stays; to the end of its scene when absent.</source>
        <translation>Wie lange sie bleibt; ohne Angabe bis zum Ende ihrer Szene.</translation>
    </message>
    <message>
        <source>How long it takes to come in.</source>
        <translation>Wie lange sie braucht, um zu kommen.</translation>
    </message>
    <message>
        <source>How long it takes to go, at the end of the film.</source>
        <translation>Wie lange sie am Ende des Films braucht, um zu gehen.</translation>
    </message>
    <message>
        <source>How long one piece takes.</source>
        <translation>Wie lange ein Teil braucht.</translation>
    </message>
    <message>
        <source>How long one sway takes.</source>
        <translation>Wie lange ein Schwung dauert.</translation>
    </message>
    <message>
        <source>How long the device takes to follow.</source>
        <translation>Wie lange das Gerät braucht, um zu folgen.</translation>
    </message>
    <message>
        <source>How long the two scenes overlap; the film is shorter by that.</source>
        <translation>Wie lange die zwei Szenen sich überdecken; um so viel ist der Film kürzer.</translation>
    </message>
    <message>
        <source>How near the device is at the playhead; 0.5 is usual.</source>
        <translation>Wie nah das Gerät an der Abspielmarke ist; 0,5 ist üblich.</translation>
    </message>
    <message>
        <source>How progress runs over the phase.</source>
        <translation>Wie der Fortschritt in der Phase verläuft.</translation>
    </message>
    <message>
        <source>How round its corners are; 0.5 is a half circle.</source>
        <translation>Wie rund seine Ecken sind; 0,5 ist ein Halbkreis.</translation>
    </message>
    <message>
        <source>How round the corners of a rect are; 0.5 is a half circle.</source>
        <translation>Wie rund die Ecken eines Rechtecks sind; 0,5 ist ein Halbkreis.</translation>
    </message>
    <message>
        <source>How soft it is: the standard deviation of a blur.</source>
        <translation>Wie weich er ist: die Standardabweichung einer Unschärfe.</translation>
    </message>
    <message>
        <source>How soft its edge is: the standard deviation of a blur.</source>
        <translation>Wie weich sein Rand ist: die Standardabweichung einer Unschärfe.</translation>
    </message>
    <message>
        <source>How solid it is at the far end.</source>
        <translation>Wie deckend es am fernen Ende ist.</translation>
    </message>
    <message>
        <source>How solid it is.</source>
        <translation>Wie deckend es ist.</translation>
    </message>
    <message>
        <source>How springy: from 0.2, which swings long, to 1, which does not swing.</source>
        <translation>Wie federnd: von 0,2, das lange schwingt, bis 1, das nicht schwingt.</translation>
    </message>
    <message>
        <source>How strong the grain is.</source>
        <translation>Wie stark das Korn ist.</translation>
    </message>
    <message>
        <source>How the device is turned at the playhead, in degrees.</source>
        <translation>Wie das Gerät an der Abspielmarke gedreht ist, in Grad.</translation>
    </message>
    <message>
        <source>How the next scene takes over.</source>
        <translation>Wie die nächste Szene übernimmt.</translation>
    </message>
    <message>
        <source>How the text comes, stays and goes.</source>
        <translation>Wie der Text kommt, bleibt und geht.</translation>
    </message>
    <message>
        <source>How wide the glow is: its standard deviation.</source>
        <translation>Wie breit das Leuchten ist: seine Standardabweichung.</translation>
    </message>
    <message>
        <source>Its colour.</source>
        <translation>Seine Farbe.</translation>
    </message>
    <message>
        <source>Its height.</source>
        <translation>Seine Höhe.</translation>
    </message>
    <message>
        <source>Its height; that of the picture in pixels when absent. The width follows.</source>
        <translation>Seine Höhe; ohne Angabe die des Bildes in Pixeln. Die Breite folgt.</translation>
    </message>
    <message>
        <source>Its image effects, applied in order before it is moved. At most 32, and at most 4 chromaticAberration.</source>
        <translation>Ihre Bildeffekte, der Reihe nach angewandt, bevor sie bewegt wird. Höchstens 32, davon höchstens 4 Farbsäume.</translation>
    </message>
    <message>
        <source>Its outline. An ellipse is a rect whose corners are as round as they can be: a circle where it is as wide as high.</source>
        <translation>Ihr Umriss. Eine Ellipse ist ein Rechteck mit so runden Ecken wie möglich: ein Kreis, wo sie so breit wie hoch ist.</translation>
    </message>
    <message>
        <source>Its paint. A gradient spans the whole canvas, not the shape: the shape is a window on it.</source>
        <translation>Ihre Farbe. Ein Verlauf spannt sich über die ganze Leinwand, nicht über die Form: die Form ist ein Fenster darauf.</translation>
    </message>
    <message>
        <source>Its place, in shares of the canvas from the top left; the whole canvas when absent.</source>
        <translation>Ihr Ort, in Anteilen der Leinwand von links oben; ohne Angabe die ganze Leinwand.</translation>
    </message>
    <message>
        <source>Its tempo; needed for times in beats. `tavix beats` finds it.</source>
        <translation>Ihr Tempo; nötig für Zeiten in Schlägen. `tavix beats` findet es.</translation>
    </message>
    <message>
        <source>Its width.</source>
        <translation>Seine Breite.</translation>
    </message>
    <message>
        <source>Loudness; 1 is as recorded.</source>
        <translation>Lautstärke; 1 ist wie aufgenommen.</translation>
    </message>
    <message>
        <source>Makes the device a model in space. It then stands where `placement` says: the layer&apos;s `position` does not move it.</source>
        <translation>Macht das Gerät zu einem Modell im Raum. Es steht dann, wo `placement` sagt: die Position der Ebene bewegt es nicht.</translation>
    </message>
    <message>
        <source>Size at the far end; 1 is its own.</source>
        <translation>Größe am fernen Ende; 1 ist die eigene.</translation>
    </message>
    <message>
        <source>Size of the text.</source>
        <translation>Größe des Textes.</translation>
    </message>
    <message>
        <source>Size of the words; 1 is that of the text.</source>
        <translation>Größe der Wörter; 1 ist die des Textes.</translation>
    </message>
    <message>
        <source>Smear of quick motion: this share of its way in a frame, at most 32 pixels. 0 is sharp.</source>
        <translation>Verwischung schneller Bewegung: dieser Anteil ihres Weges in einem Bild, höchstens 32 Pixel. 0 ist scharf.</translation>
    </message>
    <message>
        <source>Sounds at single moments.</source>
        <translation>Klänge zu einzelnen Augenblicken.</translation>
    </message>
    <message>
        <source>Spread about the middle grey; 1 changes nothing.</source>
        <translation>Spreizung um das mittlere Grau; 1 ändert nichts.</translation>
    </message>
    <message>
        <source>Standard deviation of the blur at the far end.</source>
        <translation>Standardabweichung der Unschärfe am fernen Ende.</translation>
    </message>
    <message>
        <source>Standard deviation of the blur.</source>
        <translation>Standardabweichung der Unschärfe.</translation>
    </message>
    <message>
        <source>Strength of the light; 1 is usual.</source>
        <translation>Stärke des Lichts; 1 ist üblich.</translation>
    </message>
    <message>
        <source>Strengths of the warping styles.</source>
        <translation>Stärken der verzerrenden Stile.</translation>
    </message>
    <message>
        <source>The camera&apos;s angle of view, from top to bottom.</source>
        <translation>Der Bildwinkel der Kamera, von oben bis unten.</translation>
    </message>
    <message>
        <source>The colour it is drawn towards.</source>
        <translation>Die Farbe, zu der es hingezogen wird.</translation>
    </message>
    <message>
        <source>The colour of the dark parts.</source>
        <translation>Die Farbe der dunklen Teile.</translation>
    </message>
    <message>
        <source>The colour of the light parts.</source>
        <translation>Die Farbe der hellen Teile.</translation>
    </message>
    <message>
        <source>The left upper corner of the layer, in pixels of the canvas.</source>
        <translation>Die linke obere Ecke der Ebene, in Pixeln der Leinwand.</translation>
    </message>
    <message>
        <source>The look, from the theme.</source>
        <translation>Das Aussehen, aus dem Thema.</translation>
    </message>
    <message>
        <source>The movie file, relative to the asset root.</source>
        <translation>Die Filmdatei, vom Ordner des Projekts aus.</translation>
    </message>
    <message>
        <source>The music under everything.</source>
        <translation>Die Musik unter allem.</translation>
    </message>
    <message>
        <source>The part of the clip that is shown, in shares of it from its top left.</source>
        <translation>Der gezeigte Teil des Clips, in Anteilen von links oben.</translation>
    </message>
    <message>
        <source>The part of the picture that is shown, in shares of it from its top left.</source>
        <translation>Der gezeigte Teil des Bildes, in Anteilen von links oben.</translation>
    </message>
    <message>
        <source>The picture file, relative to the asset root.</source>
        <translation>Die Bilddatei, vom Ordner des Projekts aus.</translation>
    </message>
    <message>
        <source>The pose at rest: x tips the top away, y turns the screen to the right, z turns clockwise.</source>
        <translation>Die Haltung in Ruhe: x kippt die Oberseite weg, y dreht den Bildschirm nach rechts, z dreht im Uhrzeigersinn.</translation>
    </message>
    <message>
        <source>The screen&apos;s place, in shares of the frame picture.</source>
        <translation>Der Ort des Bildschirms, in Anteilen des Rahmenbildes.</translation>
    </message>
    <message>
        <source>The side of a square.</source>
        <translation>Die Seite eines Quadrats.</translation>
    </message>
    <message>
        <source>The sound file, relative to the asset root.</source>
        <translation>Die Klangdatei, vom Ordner des Projekts aus.</translation>
    </message>
    <message>
        <source>The video file.</source>
        <translation>Die Videodatei.</translation>
    </message>
    <message>
        <source>Turn at the far end: x brings the top forward, y turns it to the right, z turns text counterclockwise and a whole layer clockwise.</source>
        <translation>Drehung am fernen Ende: x bringt die Oberseite nach vorn, y dreht nach rechts, z dreht Text gegen und eine ganze Ebene im Uhrzeigersinn.</translation>
    </message>
    <message>
        <source>Weight of the words.</source>
        <translation>Stärke der Wörter.</translation>
    </message>
    <message>
        <source>What holds at the playhead; a change sets a keyframe there.</source>
        <translation>Was an der Abspielmarke gilt; eine Änderung setzt dort einen Keyframe.</translation>
    </message>
    <message>
        <source>What is behind everything.</source>
        <translation>Was hinter allem liegt.</translation>
    </message>
    <message>
        <source>What is behind its layers.</source>
        <translation>Was hinter ihren Ebenen liegt.</translation>
    </message>
    <message>
        <source>What is heard.</source>
        <translation>Was zu hören ist.</translation>
    </message>
    <message>
        <source>What is written; a line break starts a new line. At most 20,000 characters.</source>
        <translation>Was geschrieben steht; ein Umbruch beginnt eine neue Zeile. Höchstens 20.000 Zeichen.</translation>
    </message>
    <message>
        <source>What it shows.</source>
        <translation>Was es zeigt.</translation>
    </message>
    <message>
        <source>What it was called.</source>
        <translation>Wie es genannt wurde.</translation>
    </message>
    <message>
        <source>What the devices of a formation show, one after another and over again; without it all show `screen`.</source>
        <translation>Was die Geräte einer Formation zeigen, eines nach dem anderen und wieder von vorn; ohne dies zeigen alle `screen`.</translation>
    </message>
    <message>
        <source>What the screen shows.</source>
        <translation>Was der Bildschirm zeigt.</translation>
    </message>
    <message>
        <source>When it appears, from the start of its scene.</source>
        <translation>Wann sie erscheint, vom Beginn ihrer Szene an.</translation>
    </message>
    <message>
        <source>When its first beat falls, in seconds of the file.</source>
        <translation>Wann ihr erster Schlag fällt, in Sekunden der Datei.</translation>
    </message>
    <message>
        <source>When, from the start of the film.</source>
        <translation>Wann, vom Beginn des Films an.</translation>
    </message>
    <message>
        <source>Where in the file it begins.</source>
        <translation>Wo in der Datei es beginnt.</translation>
    </message>
    <message>
        <source>Where in the file it ends.</source>
        <translation>Wo in der Datei es endet.</translation>
    </message>
    <message>
        <source>Where in the file it starts.</source>
        <translation>Wo in der Datei es anfängt.</translation>
    </message>
    <message>
        <source>Where it comes from as it appears. Of a phase around a whole layer, offset, scale, rotationDeg.z (clockwise), opacity and blur count.</source>
        <translation>Woher sie beim Erscheinen kommt. Bei einer Phase um eine ganze Ebene zählen Versatz, Größenfaktor, Drehung um z (im Uhrzeigersinn), Deckkraft und Unschärfe.</translation>
    </message>
    <message>
        <source>Where it falls: x to the right, y downwards, both in shares of the canvas height.</source>
        <translation>Wohin er fällt: x nach rechts, y nach unten, beide in Anteilen der Leinwandhöhe.</translation>
    </message>
    <message>
        <source>Where it goes as it disappears.</source>
        <translation>Wohin sie beim Verschwinden geht.</translation>
    </message>
    <message>
        <source>Where it is at the far end: x to the right, y downwards, both in shares of the canvas height.</source>
        <translation>Wo es am fernen Ende ist: x nach rechts, y nach unten, beide in Anteilen der Leinwandhöhe.</translation>
    </message>
    <message>
        <source>Where its middle stands, in output pixels from the top left. Clips with a `rect`, fills and devices do not heed it; scale, turn and skew go about it.</source>
        <translation>Wo ihre Mitte steht, in Pixeln der Ausgabe von links oben. Clips mit `rect`, Füllungen und Geräte beachten sie nicht; Größe, Drehung und Neigung gehen um sie.</translation>
    </message>
    <message>
        <source>Where lines start: left, center or right.</source>
        <translation>Wo Zeilen beginnen: links, mittig oder rechts.</translation>
    </message>
    <message>
        <source>Where the device stands at the playhead, from the middle, in canvas heights.</source>
        <translation>Wo das Gerät an der Abspielmarke steht, von der Mitte aus, in Leinwandhöhen.</translation>
    </message>
    <message>
        <source>Where the device stands, over time, about the middle of the canvas.</source>
        <translation>Wo das Gerät im Lauf der Zeit steht, um die Mitte der Leinwand.</translation>
    </message>
    <message>
        <source>Where the full darkness lies, in half diagonals from the middle.</source>
        <translation>Wo die volle Dunkelheit liegt, in halben Diagonalen von der Mitte aus.</translation>
    </message>
    <message>
        <source>Whether it fills its place or fits into it.</source>
        <translation>Ob es seinen Ort füllt oder hineinpasst.</translation>
    </message>
    <message>
        <source>Whether the last frame stays when the clip is over; it goes otherwise.</source>
        <translation>Ob das letzte Bild stehen bleibt, wenn der Clip zu Ende ist; sonst verschwindet er.</translation>
    </message>
    <message>
        <source>Which grain; the same seed gives the same.</source>
        <translation>Welches Korn; dieselbe Startzahl gibt dasselbe.</translation>
    </message>
    <message>
        <source>Which words of the text, counted from 0.</source>
        <translation>Welche Wörter des Textes, von 0 an gezählt.</translation>
    </message>
    <message>
        <source>Widest block, of the canvas width. Beside it a margin of half of (1 - maxWidthFraction) of the canvas *height* stays free on either side, and lines keep 0.6 of the text&apos;s size from the block&apos;s edges.</source>
        <translation>Breitester Block, von der Leinwandbreite. Daneben bleibt auf jeder Seite die Hälfte von (1 - maxWidthFraction) der Leinwand*höhe* frei, und Zeilen halten 0,6 der Textgröße Abstand von den Rändern des Blocks.</translation>
    </message>
    <message>
        <source>Width of the frames; even, for films.</source>
        <translation>Breite der Bilder; für Filme gerade.</translation>
    </message>
    <message>
        <source>Words with a look of their own.</source>
        <translation>Wörter mit eigenem Aussehen.</translation>
    </message>
    <message>
        <source>The folder of the reel, whose name ends in .tavixproj.</source>
        <translation>Der Ordner des Reels, dessen Name auf .tavixproj endet.</translation>
    </message>
    <message>
        <source>The picture file.</source>
        <translation>Die Bilddatei.</translation>
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
    <message>
        <source>Animated WebP</source>
        <translation>Animiertes WebP</translation>
    </message>
    <message>
        <source>Pictures, one for each frame</source>
        <translation>Bilder, eines je Einzelbild</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>At Most</source>
        <translation>Höchstens</translation>
    </message>
    <message>
        <source>The usual</source>
        <translation>Das Übliche</translation>
    </message>
    <message>
        <source>At most %1, with %2 Mbit/s for the pictures, in about %3 on this machine</source>
        <translation>Höchstens %1, mit %2 Mbit/s für die Bilder, in etwa %3 auf diesem Rechner</translation>
    </message>
    <message>
        <source>About %1 at %2 × %3 pixels and %4 frames a second, in about %5 on this machine</source>
        <translation>Etwa %1 bei %2 × %3 Pixeln und %4 Bildern je Sekunde, in etwa %5 auf diesem Rechner</translation>
    </message>
    <message>
        <source>Export to a Folder</source>
        <translation>In einen Ordner exportieren</translation>
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
    <name>FrameCopy</name>
    <message>
        <source>Copied the frame.</source>
        <translation>Das Bild wurde kopiert.</translation>
    </message>
    <message>
        <source>The frame could not be copied: %1</source>
        <translation>Das Bild konnte nicht kopiert werden: %1</translation>
    </message>
</context>
<context>
    <name>GalleryPlayer</name>
    <message>
        <source>The motion as it plays</source>
        <translation>Die Bewegung, wie sie läuft</translation>
    </message>
    <message>
        <source>From the start</source>
        <translation>Von vorn</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>No motion is chosen</source>
        <translation>Keine Bewegung gewählt</translation>
    </message>
    <message>
        <source>Choose one to see it here.</source>
        <translation>Wählen Sie eine, um sie hier zu sehen.</translation>
    </message>
    <message>
        <source>%1 · %2 · %3 s</source>
        <comment>a collection, 2D or 3D, the seconds that it takes</comment>
        <translation>%1 · %2 · %3 s</translation>
    </message>
    <message>
        <source>In documents: %1</source>
        <translation>In Dokumenten: %1</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>It is being drawn…</source>
        <translation>Wird gezeichnet…</translation>
    </message>
</context>
<context>
    <name>GalleryWindow</name>
    <message>
        <source>Motion Presets</source>
        <translation>Bewegungen</translation>
    </message>
    <message>
        <source>Give to the Selected Device</source>
        <translation>Dem gewählten Gerät geben</translation>
    </message>
    <message>
        <source>Motion “%1”</source>
        <translation>Bewegung „%1“</translation>
    </message>
    <message>
        <source>Select a device in a project to give it a motion.</source>
        <translation>Wählen Sie in einem Projekt ein Gerät, um ihm eine Bewegung zu geben.</translation>
    </message>
    <message>
        <source>It takes the place of the device&apos;s own motion; undo brings that back.</source>
        <translation>Sie ersetzt die eigene Bewegung des Geräts; Rückgängig holt diese zurück.</translation>
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
        <source>Choose a color, here or anywhere on the screen</source>
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
        <source>Color</source>
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
    <message>
        <source>Play the sound</source>
        <translation>Klang abspielen</translation>
    </message>
    <message>
        <source>Saturation and brightness</source>
        <translation>Sättigung und Helligkeit</translation>
    </message>
    <message>
        <source>Saturation %1 %, brightness %2 %</source>
        <translation>Sättigung %1 %, Helligkeit %2 %</translation>
    </message>
    <message>
        <source>In the film</source>
        <translation>Im Film</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt benutzt</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Hexadecimal digits</source>
        <translation>Hexadezimale Ziffern</translation>
    </message>
    <message>
        <source>Pick from the Screen</source>
        <translation>Vom Bildschirm aufnehmen</translation>
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
    <message>
        <source>Composition</source>
        <translation>Komposition</translation>
    </message>
    <message>
        <source>%1 layers</source>
        <translation>%1 Ebenen</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
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
        <source>%1 is open in another window. Close it there, or choose another name.</source>
        <translation>%1 ist in einem anderen Fenster geöffnet. Dort schließen oder einen anderen Namen wählen.</translation>
    </message>
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
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
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
    <name>MusicStrip</name>
    <message>
        <source>Waveform of the music</source>
        <translation>Wellenform der Musik</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Hört zu…</translation>
    </message>
    <message>
        <source>Not listened to yet: Find Beats tells its tempo and its sections.</source>
        <translation>Noch nicht angehört: „Takt finden“ nennt Tempo und Abschnitte.</translation>
    </message>
    <message>
        <source>%1 beats a minute</source>
        <translation>%1 Schläge je Minute</translation>
    </message>
    <message>
        <source>first beat at %1 s</source>
        <translation>erster Schlag bei %1 s</translation>
    </message>
    <message>
        <source>%1 % sure</source>
        <translation>zu %1 % sicher</translation>
    </message>
    <message>
        <source>or %1</source>
        <translation>oder %1</translation>
    </message>
    <message>
        <source>no beat</source>
        <translation>kein Takt</translation>
    </message>
    <message>
        <source>drop at %1 s</source>
        <translation>Drop bei %1 s</translation>
    </message>
    <message>
        <source>%1 sections</source>
        <translation>%1 Abschnitte</translation>
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
    <name>Reveal</name>
    <message>
        <source>No file manager answers. The file is “%1”.</source>
        <translation>Kein Dateimanager antwortet. Die Datei ist „%1“.</translation>
    </message>
</context>
<context>
    <name>Selection</name>
    <message>
        <source>%1 layer %2</source>
        <comment>a kind, as text or device, and the number of the layer</comment>
        <translation>Ebene %2 (%1)</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
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
    <name>Step</name>
    <message>
        <source>Find the beat</source>
        <translation>Takt finden</translation>
    </message>
    <message>
        <source>Add keyframe</source>
        <translation>Keyframe hinzufügen</translation>
    </message>
    <message>
        <source>Move device</source>
        <translation>Gerät bewegen</translation>
    </message>
    <message>
        <source>Nudge device</source>
        <translation>Gerät rücken</translation>
    </message>
    <message>
        <source>Move layer</source>
        <translation>Ebene bewegen</translation>
    </message>
    <message>
        <source>Nudge layer</source>
        <translation>Ebene rücken</translation>
    </message>
    <message>
        <source>Edit text</source>
        <translation>Text bearbeiten</translation>
    </message>
    <message>
        <source>Duplicate layer</source>
        <translation>Ebene duplizieren</translation>
    </message>
    <message>
        <source>Duplicate scene</source>
        <translation>Szene duplizieren</translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation>Ebene entfernen</translation>
    </message>
    <message>
        <source>Remove scene</source>
        <translation>Szene entfernen</translation>
    </message>
    <message>
        <source>Add scene</source>
        <translation>Szene hinzufügen</translation>
    </message>
    <message>
        <source>Add layer</source>
        <translation>Ebene hinzufügen</translation>
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
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
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
    <message>
        <source>Update Engine</source>
        <translation>Befehl aktualisieren</translation>
    </message>
    <message>
        <source>Install Globally</source>
        <translation>Für alles installieren</translation>
    </message>
    <message>
        <source>Puts the command tavix on this machine, for the agents that it has.</source>
        <translation>Legt den Befehl tavix auf diesem Rechner ab, für seine Agenten.</translation>
    </message>
    <message>
        <source>Install for a Project</source>
        <translation>Für ein Projekt installieren</translation>
    </message>
    <message>
        <source>Puts the command tavix into one folder, for the agents that work there.</source>
        <translation>Legt den Befehl tavix in einem Ordner ab, für die Agenten, die dort arbeiten.</translation>
    </message>
    <message>
        <source>The command on this machine is of another version than this application.</source>
        <translation>Der Befehl auf diesem Rechner hat eine andere Version als diese Anwendung.</translation>
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
<context>
    <name>Finding</name>
    <message>
        <source>%1 needs a beat grid — the composition declares no audio.music.bpm.</source>
        <translation>%1 braucht ein Taktraster, aber die Komposition nennt kein audio.music.bpm.</translation>
    </message>
    <message>
        <source>Set audio.music.bpm (+ firstBeatSec) — run `tavix beats &lt;audio&gt;` to measure them.</source>
        <translation>audio.music.bpm (und firstBeatSec) angeben; `tavix beats &lt;audio&gt;` misst sie.</translation>
    </message>
    <message>
        <source>%1 and %2 both set — pick one duration authority.</source>
        <translation>%1 und %2 sind beide angegeben; nur eines darf die Dauer bestimmen.</translation>
    </message>
    <message>
        <source>%1 and %2 on the same %3 — pick one clock%4.</source>
        <translation>%1 und %2 stehen beide an %3; bitte nur eine Uhr%4.</translation>
    </message>
    <message>
        <source>bpm %1 out of range (40…220).</source>
        <translation>bpm %1 liegt außerhalb von 40…220.</translation>
    </message>
    <message>
        <source>A composition needs at least one scene.</source>
        <translation>Eine Komposition braucht mindestens eine Szene.</translation>
    </message>
    <message>
        <source>Cue at %1s is past the composition end (%2s).</source>
        <translation>Der Klang bei %1 s liegt hinter dem Ende der Komposition (%2 s).</translation>
    </message>
    <message>
        <source>Sound &quot;%1&quot; is neither a catalog name (%2) nor an audio-file path — it will be skipped.</source>
        <translation>Der Klang „%1“ ist weder ein Name des Katalogs (%2) noch der Pfad einer Tondatei und wird ausgelassen.</translation>
    </message>
    <message>
        <source>%1 %2 out of range (%3…%4).</source>
        <translation>%1 %2 liegt außerhalb von %3…%4.</translation>
    </message>
    <message>
        <source>%1 accent transitions (dreamyZoom/crosswarp/ripple) — one accent per composition.</source>
        <translation>%1 auffällige Übergänge (dreamyZoom/crosswarp/ripple); einer je Komposition genügt.</translation>
    </message>
    <message>
        <source>Total runs %1s — teasers read best under 60–90s.</source>
        <translation>Insgesamt %1 s; Teaser wirken am besten unter 60–90 s.</translation>
    </message>
    <message>
        <source>%1 starts at %2s — %3s off the beat grid (nearest beat %4s at %5 BPM).</source>
        <translation>%1 beginnt bei %2 s, %3 s neben dem Taktraster (nächster Schlag %4 s bei %5 BPM).</translation>
    </message>
    <message>
        <source>Set scenes[%1].durationSec to %2 (or use durationBeats) to land the cut on the beat.</source>
        <translation>scenes[%1].durationSec auf %2 setzen (oder durationBeats verwenden), damit der Schnitt auf den Schlag fällt.</translation>
    </message>
    <message>
        <source>Music bed has an empty path.</source>
        <translation>Die Musik hat keinen Pfad.</translation>
    </message>
    <message>
        <source>Device screen needs a still or video path.</source>
        <translation>Der Bildschirm des Geräts braucht den Pfad eines Bildes oder Videos.</translation>
    </message>
    <message>
        <source>screens are for the devices of a formation, one each; without a choreographyPreset only screen is shown.</source>
        <translation>screens gilt für die Geräte einer Formation, je eines; ohne choreographyPreset wird nur screen gezeigt.</translation>
    </message>
    <message>
        <source>Device has both a placement track and x/y/scale keyframes — pick one motion system (placement = baked springs, tracks = generic keyframes).</source>
        <translation>Das Gerät hat eine placement-Spur und Keyframes für x/y/scale; bitte nur eine Art der Bewegung (placement = feste Federn, tracks = allgemeine Keyframes).</translation>
    </message>
    <message>
        <source>Placement times must be strictly ascending.</source>
        <translation>Die Zeiten von placement müssen streng aufsteigen.</translation>
    </message>
    <message>
        <source>screenOpacity %1 is outside 0…1 — clamped at render.</source>
        <translation>screenOpacity %1 liegt außerhalb von 0…1 und wird begrenzt.</translation>
    </message>
    <message>
        <source>screenOpacity times must be strictly ascending.</source>
        <translation>Die Zeiten von screenOpacity müssen streng aufsteigen.</translation>
    </message>
    <message>
        <source>Last pose keyframe at %1s is past the layer&apos;s %2s window — scene3D pose times are LAYER-LOCAL (0 = the layer&apos;s start), not the reel clock.</source>
        <translation>Der letzte Keyframe der Haltung bei %1 s liegt hinter dem Fenster der Ebene von %2 s; Zeiten von scene3D zählen ab dem Anfang der EBENE, nicht des Films.</translation>
    </message>
    <message>
        <source>A 3D device layer owns the phone&apos;s rotation (tilt/poseTrack) — a flat rotationDeg keyframe track would spin the finished 3D render. Drop the track or scene3D.</source>
        <translation>Ein Gerät im Raum dreht sich selbst (tilt/poseTrack); eine flache Spur rotationDeg würde das fertige Bild drehen. Die Spur oder scene3D entfernen.</translation>
    </message>
    <message>
        <source>Pose times must be strictly ascending.</source>
        <translation>Die Zeiten der Haltung müssen streng aufsteigen.</translation>
    </message>
    <message>
        <source>Depth times must be strictly ascending.</source>
        <translation>Die Zeiten der Tiefe müssen streng aufsteigen.</translation>
    </message>
    <message>
        <source>%1 has no effect beside %2, which takes its place.</source>
        <translation>%1 wirkt nicht neben %2: das tritt an seine Stelle.</translation>
    </message>
    <message>
        <source>position has no effect here. %1.</source>
        <translation>position wirkt hier nicht. %1.</translation>
    </message>
    <message>
        <source>Keyframe t must be ≥ 0 (layer-local clock).</source>
        <translation>t eines Keyframes muss ≥ 0 sein (ab dem Anfang der Ebene).</translation>
    </message>
    <message>
        <source>Keyframe times must be strictly ascending (%1 after %2).</source>
        <translation>Die Zeiten der Keyframes müssen streng aufsteigen (%1 nach %2).</translation>
    </message>
    <message>
        <source>Opacity %1 is outside 0…1 — it renders clamped.</source>
        <translation>Die Deckkraft %1 liegt außerhalb von 0…1 und wird begrenzt.</translation>
    </message>
    <message>
        <source>Scale must be &gt; 0 (scale interpolates in log space).</source>
        <translation>scale muss &gt; 0 sein (dazwischen wird logarithmisch gerechnet).</translation>
    </message>
    <message>
        <source>Both an opacity track and a fading enter/exit phase — the two multiply into a double-fade.</source>
        <translation>Eine Spur der Deckkraft und ein blendendes enter/exit zugleich: beide zusammen blenden doppelt.</translation>
    </message>
    <message>
        <source>Unknown effect &quot;%1&quot; — must be one of %2.</source>
        <translation>Den Effekt „%1“ gibt es nicht; möglich sind %2.</translation>
    </message>
    <message>
        <source>fromSec must be ≥ 0 (scene-local clock).</source>
        <translation>fromSec muss ≥ 0 sein (ab dem Anfang der Szene).</translation>
    </message>
    <message>
        <source>Layer starts at %1s but the scene ends at %2s.</source>
        <translation>Die Ebene beginnt bei %1 s, aber die Szene endet bei %2 s.</translation>
    </message>
    <message>
        <source>durationSec must be &gt; 0 (omit it to run to the scene end).</source>
        <translation>durationSec muss &gt; 0 sein (ohne reicht die Ebene bis ans Ende der Szene).</translation>
    </message>
    <message>
        <source>Layer window ends at %1s, past the scene end (%2s).</source>
        <translation>Das Fenster der Ebene endet bei %1 s, hinter dem Ende der Szene (%2 s).</translation>
    </message>
    <message>
        <source>Mark reference has an empty mark name.</source>
        <translation>Der Verweis nennt keine Marke.</translation>
    </message>
    <message>
        <source>clip &quot;%1&quot; doesn&apos;t match any device layer id in this scene%2.</source>
        <translation>clip „%1“ ist keine id einer Geräteebene dieser Szene%2.</translation>
    </message>
    <message>
        <source>Mark references need a device layer (with a video screen) in the same scene — this scene has none.</source>
        <translation>Verweise auf Marken brauchen eine Geräteebene (mit einem Video) in derselben Szene; diese Szene hat keine.</translation>
    </message>
    <message>
        <source>This scene has %1 device layers — set &quot;clip&quot; on the mark reference to pick one (device ids: %2).</source>
        <translation>Diese Szene hat %1 Geräteebenen; „clip“ am Verweis wählt eine (ids: %2).</translation>
    </message>
    <message>
        <source>There is no rule &quot;%1&quot; to mute; `tavix lint --codes` lists them.</source>
        <translation>Eine Regel „%1“ gibt es nicht; `tavix lint --codes` nennt alle.</translation>
    </message>
    <message>
        <source>There is no %1 &quot;%2&quot;, so the device does not move by it. Use one of %3.</source>
        <translation>Es gibt keine %1 „%2“, also bewegt sich das Gerät nicht danach. Möglich sind %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no key here, and is not read. The keys are %2.</source>
        <translation>„%1“ ist hier kein Schlüssel und wird nicht gelesen. Die Schlüssel sind %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known here and is read as &quot;%2&quot;. Use one of %3.</source>
        <translation>„%1“ ist hier nicht bekannt und wird als „%2“ gelesen. Möglich sind %3.</translation>
    </message>
    <message>
        <source>%1 is read as %2; it must be %3.</source>
        <translation>%1 wird als %2 gelesen; erlaubt ist %3.</translation>
    </message>
    <message>
        <source>%1 It is left out.</source>
        <translation>%1 Es wird ausgelassen.</translation>
    </message>
    <message>
        <source>Did you mean &quot;%1&quot;?</source>
        <translation>Ist „%1“ gemeint?</translation>
    </message>
    <message>
        <source>Shape width/heightFraction must be &gt; 0.</source>
        <translation>widthFraction und heightFraction einer Form müssen &gt; 0 sein.</translation>
    </message>
    <message>
        <source>Video layer has an empty path.</source>
        <translation>Die Videoebene hat keinen Pfad.</translation>
    </message>
    <message>
        <source>trimEndSec (%1) must be after trimStartSec (%2).</source>
        <translation>trimEndSec (%1) muss nach trimStartSec (%2) liegen.</translation>
    </message>
    <message>
        <source>Image layer has an empty path.</source>
        <translation>Die Bildebene hat keinen Pfad.</translation>
    </message>
    <message>
        <source>Transition durationSec (or durationBeats on a music grid) is required and must be &gt; 0 (the tempo decision is always explicit).</source>
        <translation>Ein Übergang braucht durationSec (oder durationBeats, wenn die Musik einen Takt hat), und mehr als 0: das Tempo wird immer angegeben.</translation>
    </message>
    <message>
        <source>Transition (%1s) is longer than the shorter adjacent scene (%2s) — both scenes must outlive the overlap.</source>
        <translation>Der Übergang (%1 s) ist länger als die kürzere Szene daneben (%2 s); beide müssen ihn überdauern.</translation>
    </message>
    <message>
        <source>flip has no 2-D presentation — it renders as a wipe here.</source>
        <translation>flip gibt es in der Ebene nicht; hier wird daraus ein Wischen.</translation>
    </message>
    <message>
        <source>Bouncy transition timing (damping %1) — counts as the scene&apos;s one accent.</source>
        <translation>Ein federnder Übergang (Dämpfung %1) zählt als der eine Akzent der Szene.</translation>
    </message>
    <message>
        <source>%1: durationSec must be &gt; 0.</source>
        <translation>%1: durationSec muss &gt; 0 sein.</translation>
    </message>
    <message>
        <source>%1 runs %2s — scenes over 30s usually want a cut (&quot;let time solve layout&quot;).</source>
        <translation>%1 dauert %2 s; Szenen über 30 s wollen meist einen Schnitt.</translation>
    </message>
    <message>
        <source>%1 is the last scene — a transition needs a next scene to join.</source>
        <translation>%1 ist die letzte Szene; ein Übergang braucht eine nächste.</translation>
    </message>
    <message>
        <source>%1 has %2 3D device layers — each one is a full 3D render per frame; expect roughly %3× frame cost.</source>
        <translation>%1 hat %2 Geräte im Raum; jedes wird für jedes Bild eigens gezeichnet, das kostet etwa das %3-fache.</translation>
    </message>
    <message>
        <source>%1 shows &gt;2 text layers at once — give each message its own moment.</source>
        <translation>%1 zeigt mehr als zwei Texte zugleich; jede Aussage braucht ihren Moment.</translation>
    </message>
    <message>
        <source>%1 has two focal layers (device/full-bleed video) at once — one focal point per frame.</source>
        <translation>%1 hat zwei Blickpunkte zugleich (Gerät oder Video über alles); einer je Bild genügt.</translation>
    </message>
    <message>
        <source>%1 has %2 bouncy springs (damping &lt; 0.7) — one accent per scene, damping ≥ 0.8 elsewhere.</source>
        <translation>%1 hat %2 federnde Bewegungen (Dämpfung &lt; 0.7); eine je Szene genügt, sonst ≥ 0.8.</translation>
    </message>
    <message>
        <source>Unknown kinetic preset &quot;%1&quot; — must be one of %2.</source>
        <translation>Die Textbewegung „%1“ gibt es nicht; möglich sind %2.</translation>
    </message>
    <message>
        <source>alignment must be left|center|right.</source>
        <translation>alignment muss left, center oder right sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; shows for %2s — under the readability floor (%3s for %4 words).</source>
        <translation>„%1“ ist %2 s zu sehen; zum Lesen braucht es %3 s (%4 Wörter).</translation>
    </message>
    <message>
        <source>&quot;%1&quot; shows for %2s — under the readability floor (%3s for %4 word).</source>
        <translation>„%1“ ist %2 s zu sehen; zum Lesen braucht es %3 s (%4 Wort).</translation>
    </message>
    <message>
        <source>sizeFraction %1 is below the label minimum %2 (≈32px @1080w) — unreadable at video distance.</source>
        <translation>sizeFraction %1 liegt unter dem Mindestmaß %2 für Beschriftungen (≈32 px bei 1080 Breite) und ist im Film nicht zu lesen.</translation>
    </message>
    <message>
        <source>sizeFraction %1 is below the supporting-copy minimum %2 (≈44px @1080w).</source>
        <translation>sizeFraction %1 liegt unter dem Mindestmaß %2 für Sätze (≈44 px bei 1080 Breite).</translation>
    </message>
    <message>
        <source>Text center (%1, %2)px is outside the safe area (within %3×%4px of center (%5, %6)).</source>
        <translation>Die Mitte des Textes (%1, %2) px liegt außerhalb des sicheren Bereichs (bis %3×%4 px um die Mitte (%5, %6)).</translation>
    </message>
    <message>
        <source>&quot;%1&quot; looks like a path but not a font file (.ttf/.otf/.ttc).</source>
        <translation>„%1“ sieht aus wie ein Pfad, ist aber keine Schriftdatei (.ttf/.otf/.ttc).</translation>
    </message>
    <message>
        <source>Text layer has empty copy.</source>
        <translation>Die Textebene ist leer.</translation>
    </message>
    <message>
        <source>%1 has no effect on a %2, which has %3.</source>
        <translation>%1 wirkt nicht auf %2: das hat %3.</translation>
    </message>
    <message>
        <source>There is no word %1: the text has %2, counted from 0.</source>
        <translation>Ein Wort %1 gibt es nicht: der Text hat %2, von 0 an gezählt.</translation>
    </message>
    <message>
        <source>%1: durationSec (%2) and durationBeats (%3 = %4s) both set — pick one duration authority.</source>
        <translation>%1: durationSec (%2) und durationBeats (%3 = %4 s) sind beide angegeben; nur eines darf die Dauer bestimmen.</translation>
    </message>
    <message>
        <source>%1: the device motion runs to %2s but durationBeats: %3 resolves to %4s — the tail will be cut.</source>
        <translation>%1: das Gerät bewegt sich bis %2 s, aber durationBeats: %3 ergibt %4 s; das Ende wird abgeschnitten.</translation>
    </message>
    <message>
        <source>Use durationBeats: %1 to fit it.</source>
        <translation>durationBeats: %1 fasst sie ganz.</translation>
    </message>
    <message>
        <source>%1 (%2) and %3 (%4) both set — pick one duration authority.</source>
        <translation>%1 (%2) und %3 (%4) sind beide angegeben; nur eines darf die Dauer bestimmen.</translation>
    </message>
    <message>
        <source>Beat %1 is %2s on the global clock — before this scene starts (%3s).</source>
        <translation>Schlag %1 liegt im Film bei %2 s, vor dem Anfang dieser Szene (%3 s).</translation>
    </message>
    <message>
        <source>Beat %1 resolves to scene time %2s — at or before the layer&apos;s start (%3s).</source>
        <translation>Schlag %1 liegt in der Szene bei %2 s, nicht nach dem Anfang der Ebene (%3 s).</translation>
    </message>
    <message>
        <source>Beat %1 resolves to %2s — before the composition starts.</source>
        <translation>Schlag %1 liegt bei %2 s, vor dem Anfang der Komposition.</translation>
    </message>
    <message>
        <source>Beat keyframes need a concrete or beat-valued layer start — this layer starts at a recording mark.</source>
        <translation>Keyframes auf Schlägen brauchen eine Ebene, die zu einer Zeit oder auf einem Schlag beginnt; diese beginnt an einer Marke.</translation>
    </message>
    <message>
        <source>Use atMark for the keyframe too, or give the layer fromBeat/fromSec.</source>
        <translation>Auch den Keyframe mit atMark setzen, oder der Ebene fromBeat oder fromSec geben.</translation>
    </message>
    <message>
        <source>%1 must reference the SAME device layer&apos;s clip.</source>
        <translation>%1 muss auf den Clip DERSELBEN Geräteebene verweisen.</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; resolves to %2s — before the clip&apos;s trimStartSec (%3s).</source>
        <translation>Die Marke „%1“ liegt bei %2 s, vor trimStartSec des Clips (%3 s).</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; resolves to scene time %2s — before the scene starts.</source>
        <translation>Die Marke „%1“ liegt in der Szene bei %2 s, vor ihrem Anfang.</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; resolves to scene time %2s — at or before the layer&apos;s start (%3s).</source>
        <translation>Die Marke „%1“ liegt in der Szene bei %2 s, nicht nach dem Anfang der Ebene (%3 s).</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; has no end time — only scripted steps (a `durationSec` scroll) land &quot;#end&quot; marks.</source>
        <translation>Die Marke „%1“ hat kein Ende; nur Schritte mit einer Dauer (`durationSec`) setzen Marken mit „#end“.</translation>
    </message>
    <message>
        <source>%1 has %2 device layers — set &quot;clip&quot; on the mark reference to pick one%3.</source>
        <translation>%1 hat %2 Geräteebenen; „clip“ am Verweis wählt eine%3.</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; references clip &quot;%2&quot;, but %3 has no device layer with that id%4.</source>
        <translation>Die Marke „%1“ verweist auf clip „%2“, aber %3 hat keine Geräteebene mit dieser id%4.</translation>
    </message>
    <message>
        <source>Mark references need a VIDEO device screen — the device layer plays a still, which has no timeline sidecar.</source>
        <translation>Verweise auf Marken brauchen ein Gerät mit einem VIDEO; dieses zeigt ein Bild, zu dem es keine Zeitleiste gibt.</translation>
    </message>
    <message>
        <source>No timeline sidecar for &quot;%1&quot; — expected %2 next to the clip (tavix run writes it; the .tavixcomp bundler copies it).</source>
        <translation>Zu „%1“ fehlt die Zeitleiste: %2 gehört neben den Clip (tavix run schreibt sie).</translation>
    </message>
    <message>
        <source>Re-copy the recording together with its .timeline.json, or drop the mark references.</source>
        <translation>Die Aufnahme mit ihrer .timeline.json neu kopieren, oder die Verweise entfernen.</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; not found in the sidecar for &quot;%2&quot;. Available marks: %3.</source>
        <translation>Die Marke „%1“ steht nicht in der Zeitleiste von „%2“. Vorhanden: %3.</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; is ambiguous — %2 steps carry it. Give each step a distinct target.label in the FlowSpec.</source>
        <translation>Die Marke „%1“ ist nicht eindeutig: %2 Schritte tragen sie. Jeder Schritt braucht im FlowSpec ein eigenes target.label.</translation>
    </message>
    <message>
        <source>%1: the %2&apos;s footage ends %3s into the layer window but the window runs to %4s — the last frame freezes for %5s.</source>
        <translation>%1: das Material (%2) endet nach %3 s, aber die Ebene dauert %4 s; das letzte Bild steht %5 s.</translation>
    </message>
    <message>
        <source>Shorten the scene/window (durationSec/durationBeats) to fit the footage, trim later, or re-record a longer segment — recordings never stretch.</source>
        <translation>Die Szene oder Ebene kürzen (durationSec/durationBeats), später schneiden oder länger aufnehmen; Aufnahmen werden nie gedehnt.</translation>
    </message>
    <message>
        <source>A part of %1 cannot be read: over a fifth of a line its contrast is %2:1 against what lies under it there.</source>
        <translation>Ein Teil von %1 ist nicht zu lesen: über ein Fünftel einer Zeile ist der Kontrast zum Grund nur %2:1.</translation>
    </message>
    <message>
        <source>Move it off what it crosses, or put a panel or a shadow under the text.</source>
        <translation>Den Text von dort wegrücken, oder eine Fläche oder einen Schatten darunter legen.</translation>
    </message>
    <message>
        <source>%1 has a contrast of %2:1 against what lies under it; %3:1 is the least for text of this size.</source>
        <translation>%1 hat zum Grund einen Kontrast von %2:1; für Text dieser Größe sind %3:1 das Mindeste.</translation>
    </message>
    <message>
        <source>Choose a colour that is lighter or darker, or put a panel or a shadow under the text.</source>
        <translation>Eine hellere oder dunklere Farbe wählen, oder eine Fläche oder einen Schatten unter den Text legen.</translation>
    </message>
    <message>
        <source>There is no clip &quot;%1&quot;.</source>
        <translation>Es gibt keinen Clip „%1“.</translation>
    </message>
    <message>
        <source>The clip &quot;%1&quot; holds no picture.</source>
        <translation>Der Clip „%1“ enthält kein Bild.</translation>
    </message>
    <message>
        <source>More than three %1 within a second %2 (%3), over %4 % of a field of 10 degrees, where a quarter is the most. They can cause seizures.</source>
        <translation>Mehr als drei %1 in einer Sekunde %2 (%3), über %4 % eines Feldes von 10 Grad; ein Viertel ist das Höchste. Sie können Anfälle auslösen.</translation>
    </message>
    <message>
        <source>Flash at most three times in any second, over a smaller area, or with less difference.</source>
        <translation>Höchstens dreimal in jeder Sekunde blitzen, über eine kleinere Fläche oder mit weniger Unterschied.</translation>
    </message>
    <message>
        <source>The film is black %1 (%2).</source>
        <translation>Der Film ist %1 schwarz (%2).</translation>
    </message>
    <message>
        <source>Nothing moves %1 (%2).</source>
        <translation>Nichts bewegt sich %1 (%2).</translation>
    </message>
    <message>
        <source>There is no reel &quot;%1&quot;.</source>
        <translation>Es gibt kein Reel „%1“.</translation>
    </message>
    <message>
        <source>There is no background &quot;%1&quot;; use one of %2.</source>
        <translation>Es gibt keinen Hintergrund „%1“; möglich sind %2.</translation>
    </message>
    <message>
        <source>There is no sound file &quot;%1&quot;.</source>
        <translation>Es gibt keine Tondatei „%1“.</translation>
    </message>
    <message>
        <source>The font file &quot;%1&quot; is missing or holds no font; &quot;%2&quot; stands in for it. Check its path, which starts at the document&apos;s folder.</source>
        <translation>Die Schriftdatei „%1“ fehlt oder enthält keine Schrift; „%2“ steht für sie. Der Pfad beginnt im Ordner des Dokuments.</translation>
    </message>
    <message>
        <source>The font &quot;%1&quot; is not on this machine; &quot;%2&quot; stands in for it. Bring its file in the bundle and name that as the font.</source>
        <translation>Die Schrift „%1“ ist auf diesem Rechner nicht vorhanden; „%2“ steht für sie. Ihre Datei ins Paket legen und als Schrift nennen.</translation>
    </message>
    <message>
        <source>%1 is broken inside a word: its letters are set apart by trackingEm, and a line of %2 px has no room for all of it.</source>
        <translation>%1 wird mitten im Wort umbrochen: trackingEm sperrt die Buchstaben, und eine Zeile von %2 px fasst es nicht.</translation>
    </message>
    <message>
        <source>Make trackingEm or sizeFraction smaller, maxWidthFraction larger, or end lines by line feeds.</source>
        <translation>trackingEm oder sizeFraction verkleinern, maxWidthFraction vergrößern oder Zeilen selbst umbrechen.</translation>
    </message>
    <message>
        <source>%1 is broken inside a word: a line has room for %2 px, and a word is wider at this size.</source>
        <translation>%1 wird mitten im Wort umbrochen: eine Zeile fasst %2 px, und ein Wort ist in dieser Größe breiter.</translation>
    </message>
    <message>
        <source>Make sizeFraction smaller or maxWidthFraction larger.</source>
        <translation>sizeFraction verkleinern oder maxWidthFraction vergrößern.</translation>
    </message>
    <message>
        <source>%1 takes %2 lines, %3 px high, in a frame of %4 px.</source>
        <translation>%1 braucht %2 Zeilen, %3 px hoch, in einem Bild von %4 px.</translation>
    </message>
    <message>
        <source>Make it smaller, shorter or wider, or let several layers say it one after another.</source>
        <translation>Kleiner, kürzer oder breiter machen, oder mehrere Ebenen nacheinander sprechen lassen.</translation>
    </message>
    <message>
        <source>%1 is drawn %2 px from where it is put, to stay inside the frame with its margins.</source>
        <translation>%1 wird %2 px neben seiner Stelle gezeichnet, um mit Rand im Bild zu bleiben.</translation>
    </message>
    <message>
        <source>Put it at %1, where it is drawn, or make it smaller.</source>
        <translation>Auf %1 setzen, wo es gezeichnet wird, oder verkleinern.</translation>
    </message>
    <message>
        <source>%1 is never seen: %2</source>
        <translation>%1 ist nie zu sehen: %2</translation>
    </message>
    <message>
        <source>Device %1 of the %2 of this formation is outside the frame for most of the time.</source>
        <translation>Gerät %1 der %2 dieser Formation ist die meiste Zeit außerhalb des Bildes.</translation>
    </message>
    <message>
        <source>Devices %1 of the %2 of this formation are outside the frame for most of the time.</source>
        <translation>Die Geräte %1 der %2 dieser Formation sind die meiste Zeit außerhalb des Bildes.</translation>
    </message>
    <message>
        <source>Use a smaller spread or fewer devices.</source>
        <translation>Enger stellen oder weniger Geräte verwenden.</translation>
    </message>
    <message>
        <source>%1 shows nothing but its background for its first %2 s.</source>
        <translation>%1 zeigt in den ersten %2 s nichts als den Hintergrund.</translation>
    </message>
    <message>
        <source>Let something appear within half a second.</source>
        <translation>Innerhalb einer halben Sekunde etwas zeigen.</translation>
    </message>
    <message>
        <source>Cannot read the image &quot;%1&quot;. %2</source>
        <translation>Das Bild „%1“ lässt sich nicht lesen. %2</translation>
    </message>
</context>
<context>
    <name>FindingPart</name>
    <message>
        <source>layer</source>
        <translation>einer Ebene</translation>
    </message>
    <message>
        <source>keyframe</source>
        <translation>einem Keyframe</translation>
    </message>
    <message>
        <source> for the start</source>
        <translation> für den Anfang</translation>
    </message>
    <message>
        <source> for the end</source>
        <translation> für das Ende</translation>
    </message>
    <message>
        <source> (device ids: %1)</source>
        <translation> (ids der Geräte: %1)</translation>
    </message>
    <message>
        <source>motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>formation</source>
        <translation>Formation</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>höchstens %1</translation>
    </message>
    <message>
        <source>between %1 and %2</source>
        <translation>zwischen %1 und %2</translation>
    </message>
    <message>
        <source>the formation &quot;%1&quot;</source>
        <translation>der Formation „%1“</translation>
    </message>
    <message>
        <source>the motion &quot;%1&quot;</source>
        <translation>der Bewegung „%1“</translation>
    </message>
    <message>
        <source>the formation &quot;%1&quot;, which leaves the device flat</source>
        <translation>der Formation „%1“, die das Gerät flach lässt</translation>
    </message>
    <message>
        <source>the motion &quot;%1&quot;, which leaves the device flat</source>
        <translation>der Bewegung „%1“, die das Gerät flach lässt</translation>
    </message>
    <message>
        <source>A fill covers the whole frame</source>
        <translation>Eine Füllung bedeckt das ganze Bild</translation>
    </message>
    <message>
        <source>A video stands in its rect, or fills the frame</source>
        <translation>Ein Video steht in seinem rect, oder füllt das Bild</translation>
    </message>
    <message>
        <source>A device stands in the middle of the frame, moved by its placement</source>
        <translation>Ein Gerät steht in der Mitte des Bildes, bewegt von seinem placement</translation>
    </message>
    <message>
        <source>no parameters</source>
        <translation>keine Parameter</translation>
    </message>
    <message>
        <source>1 word</source>
        <translation>ein Wort</translation>
    </message>
    <message>
        <source>%1 words</source>
        <translation>%1 Wörter</translation>
    </message>
    <message>
        <source>none (older recording without labels — re-record)</source>
        <translation>keine (ältere Aufnahme ohne Namen; neu aufnehmen)</translation>
    </message>
    <message>
        <source>device screen</source>
        <translation>Bildschirm des Geräts</translation>
    </message>
    <message>
        <source>reel on the device screen</source>
        <translation>Reel auf dem Gerät</translation>
    </message>
    <message>
        <source>video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>this %1 layer</source>
        <translation>diese Ebene (%1)</translation>
    </message>
    <message>
        <source>This %1 layer</source>
        <translation>Diese Ebene (%1)</translation>
    </message>
    <message>
        <source>The emphasis in %1</source>
        <translation>Die Hervorhebung in %1</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>fill</source>
        <translation>Füllung</translation>
    </message>
    <message>
        <source>%1 lies in front of all of it.</source>
        <translation>%1 liegt ganz davor.</translation>
    </message>
    <message>
        <source>it stays outside the frame.</source>
        <translation>sie bleibt außerhalb des Bildes.</translation>
    </message>
    <message>
        <source>it stays too small or too clear to be seen.</source>
        <translation>sie bleibt zu klein oder zu durchsichtig.</translation>
    </message>
    <message>
        <source>it has no size.</source>
        <translation>sie hat keine Größe.</translation>
    </message>
    <message>
        <source>it stays clear; look at its opacity.</source>
        <translation>sie bleibt durchsichtig; siehe ihre Deckkraft.</translation>
    </message>
    <message>
        <source>flashes</source>
        <translation>Blitze</translation>
    </message>
    <message>
        <source>flashes of red</source>
        <translation>rote Blitze</translation>
    </message>
    <message>
        <source>from %1 to %2 s</source>
        <translation>von %1 bis %2 s</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Es gibt keine solche Datei.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>The file cannot be read.</source>
        <translation>Die Datei ist nicht lesbar.</translation>
    </message>
    <message>
        <source>It is not a PNG, JPEG, WebP, HEIC or AVIF image.</source>
        <translation>Es ist kein Bild der Formate PNG, JPEG, WebP, HEIC oder AVIF.</translation>
    </message>
    <message>
        <source>The image is damaged: the file ends early.</source>
        <translation>Das Bild ist beschädigt: die Datei endet zu früh.</translation>
    </message>
</context>
<context>
    <name>Template</name>
    <message>
        <source>A line, a promise and a date: moving type in the dark, with a chime.</source>
        <translation>Eine Zeile, ein Versprechen und ein Datum: bewegte Schrift im Dunkeln, mit einem Klang.</translation>
    </message>
    <message>
        <source>One phone in space: its entrance, its turn with three numbers, a name.</source>
        <translation>Ein Telefon im Raum: sein Auftritt, seine Drehung mit drei Zahlen, ein Name.</translation>
    </message>
    <message>
        <source>Three features, each with its screen, its headline and its colour.</source>
        <translation>Drei Funktionen, jede mit Bildschirm, Überschrift und Farbe.</translation>
    </message>
    <message>
        <source>News in three steps: what it is, what is in it, what to do.</source>
        <translation>Neues in drei Schritten: was es ist, was darin ist, was zu tun ist.</translation>
    </message>
    <message>
        <source>Words and a phone cut to music at 120 beats a minute.</source>
        <translation>Wörter und ein Telefon, geschnitten auf Musik mit 120 Schlägen in der Minute.</translation>
    </message>
    <message>
        <source>A question, three screens and an answer, for a feed.</source>
        <translation>Eine Frage, drei Bildschirme und eine Antwort, für einen Feed.</translation>
    </message>
</context>
</TS>

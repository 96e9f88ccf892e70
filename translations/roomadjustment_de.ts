<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AbcMatchingDialog</name>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;No Measurement Tool available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Kein Messwerkzeug verfügbar!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Open reference points file...</source>
        <translation>Datei mit Referenzpunkten öffnen …</translation>
    </message>
    <message>
        <source>Text files (*.txt);; All files (*)</source>
        <translation>Textdateien (*.txt);; Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Fehler beim Laden</translation>
    </message>
    <message>
        <source>Unknown format !</source>
        <translation>Unbekanntes Format!</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Nothing to save.</source>
        <translation>Nichts zu speichern.</translation>
    </message>
    <message>
        <source>Save reference points</source>
        <translation>Referenzpunkte speichern</translation>
    </message>
    <message>
        <source>Text file (*.txt)</source>
        <translation>Textdatei (*.txt)</translation>
    </message>
    <message>
        <source>x[mm]</source>
        <translation>x[mm]</translation>
    </message>
    <message>
        <source>y[mm]</source>
        <translation>y[mm]</translation>
    </message>
    <message>
        <source>z[mm]</source>
        <translation>z[mm]</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number!</source>
        <translation>„%1“ ist keine Zahl!</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Remove row %1?</source>
        <translation>Zeile %1 entfernen?</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Nothing selected.</source>
        <translation>Nichts ausgewählt.</translation>
    </message>
    <message>
        <source>Remove all measured points?</source>
        <translation>Alle gemessenen Punkte entfernen?</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>More than %1 points do not fit into the table.</source>
        <translation>Mehr als %1 Punkte passen nicht in die Tabelle.</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; could not be written:
%2</source>
        <translation>Die Datei &apos;%1&apos; konnte nicht geschrieben werden:
%2</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existiert bereits.
Soll die Datei ersetzt werden?</translation>
    </message>
</context>
<context>
    <name>AbcMatchingDialogClass</name>
    <message>
        <source>Room Adjustment Based On Reference Points</source>
        <translation>Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>Room adjustment based on reference points</source>
        <translation>Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>Reference points</source>
        <translation>Referenzpunkte</translation>
    </message>
    <message>
        <source>reference points</source>
        <translation>Referenzpunkte</translation>
    </message>
    <message>
        <source>Preserve order of points</source>
        <translation>Reihenfolge der Punkte beibehalten</translation>
    </message>
    <message>
        <source>&amp;preserve order of points</source>
        <translation>&amp;Reihenfolge beibehalten</translation>
    </message>
    <message>
        <source>Load reference points from text file</source>
        <translation>Referenzpunkte aus einer Textdatei laden</translation>
    </message>
    <message>
        <source>&amp;Load</source>
        <translation>&amp;Laden</translation>
    </message>
    <message>
        <source>Save reference points to text file</source>
        <translation>Referenzpunkte in eine Textdatei speichern</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Add new reference point</source>
        <translation>Neuen Referenzpunkt hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Remove selected point from table</source>
        <translation>Ausgewählten Punkt aus der Tabelle entfernen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Measured points</source>
        <translation>Gemessene Punkte</translation>
    </message>
    <message>
        <source>measured points</source>
        <translation>gemessene Punkte</translation>
    </message>
    <message>
        <source>Select Measurement Tool</source>
        <translation>Messwerkzeug auswählen</translation>
    </message>
    <message>
        <source>Measurement &amp;Tool:</source>
        <translation>Mess&amp;werkzeug:</translation>
    </message>
    <message>
        <source>Tracked status of selected Measurement Tool</source>
        <translation>Ob das ausgewählte Messwerkzeug erfasst wird</translation>
    </message>
    <message>
        <source>Start measuring</source>
        <translation>Messung starten</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>Progress of measurement</source>
        <translation>Fortschritt der Messung</translation>
    </message>
    <message>
        <source>Replace selected point by measuring</source>
        <translation>Ausgewählten Punkt durch eine neue Messung ersetzen</translation>
    </message>
    <message>
        <source>&amp;replace selected</source>
        <translation>Punkt &amp;ersetzen</translation>
    </message>
    <message>
        <source>Remove selected point</source>
        <translation>Ausgewählten Punkt entfernen</translation>
    </message>
    <message>
        <source>Clear table</source>
        <translation>Tabelle leeren</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>Leere&amp;n</translation>
    </message>
    <message>
        <source>Transformation of the room coordinate system</source>
        <translation>Transformation des Raumkoordinatensystems</translation>
    </message>
    <message>
        <source>transformation</source>
        <translation>Transformation</translation>
    </message>
    <message>
        <source>Show help</source>
        <translation>Hilfe anzeigen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Accept calculated transformation and close dialog</source>
        <translation>Berechnete Transformation übernehmen und Dialog schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Discard transformation and close dialog</source>
        <translation>Transformation verwerfen und Dialog schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CoarseAdjustmentClass</name>
    <message>
        <source>CoarseAdjustment</source>
        <translation>Grobjustierung</translation>
    </message>
    <message>
        <source>Adjust room coordinate system by rotating around axes</source>
        <translation>Raumkoordinatensystem durch Drehen um Achsen justieren</translation>
    </message>
    <message>
        <source>Camera coordinates</source>
        <translation>Kamerakoordinaten</translation>
    </message>
    <message>
        <source>Assign axes to room directions:</source>
        <translation>Achsen den Raumrichtungen zuordnen:</translation>
    </message>
    <message>
        <source>Change the vertical axis to rotate room coordinate system.</source>
        <translation>Die senkrechte Achse ändern, um das Raumkoordinatensystem zu drehen.</translation>
    </message>
    <message>
        <source>-z</source>
        <translation>-z</translation>
    </message>
    <message>
        <source>x</source>
        <translation>x</translation>
    </message>
    <message>
        <source>The current room coordinate system.</source>
        <translation>Das aktuelle Raumkoordinatensystem.</translation>
    </message>
    <message>
        <source>Change the horizontal axis to rotate room coordinate system.</source>
        <translation>Die waagerechte Achse ändern, um das Raumkoordinatensystem zu drehen.</translation>
    </message>
    <message>
        <source>z</source>
        <translation>z</translation>
    </message>
    <message>
        <source>-y</source>
        <translation>-y</translation>
    </message>
    <message>
        <source>Reset room coordinate system to default values</source>
        <translation>Raumkoordinatensystem auf die Vorgabewerte zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Vorgabe</translation>
    </message>
</context>
<context>
    <name>CooTrans</name>
    <message>
        <source>Open matching dialog</source>
        <translation>Dialog für Referenzpunkte öffnen</translation>
    </message>
    <message>
        <source>Not available: the controller has no licence for the Measurement Tool</source>
        <translation>Nicht verfügbar: Der Controller hat keine Lizenz für das Messwerkzeug</translation>
    </message>
    <message>
        <source>Not available: the controller did not say whether it has a licence for the Measurement Tool</source>
        <translation>Nicht verfügbar: Der Controller hat nicht mitgeteilt, ob er eine Lizenz für das Messwerkzeug hat</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Scaling (+/- 5%)</source>
        <translation>Skalierung (+/- 5%)</translation>
    </message>
    <message>
        <source>You have unsaved data. Save changes?

(If yes press &apos;Apply&apos; and re-open matching)</source>
        <translation>Es gibt nicht übernommene Änderungen. Behalten?

(Wenn ja, „Anwenden“ drücken und erneut starten)</translation>
    </message>
    <message>
        <source>Room Adjustment</source>
        <translation>Raumjustierung</translation>
    </message>
    <message>
        <source>Long axes</source>
        <translation>Lange Achsen</translation>
    </message>
    <message>
        <source>Show XY plane</source>
        <translation>XY-Ebene zeigen</translation>
    </message>
    <message>
        <source>Show YZ plane</source>
        <translation>YZ-Ebene zeigen</translation>
    </message>
    <message>
        <source>Show XZ plane</source>
        <translation>XZ-Ebene zeigen</translation>
    </message>
</context>
<context>
    <name>CooTransClass</name>
    <message>
        <source>CooTrans</source>
        <translation>Feinjustierung</translation>
    </message>
    <message>
        <source>Vector for zero point offset</source>
        <translation>Vektor der Nullpunktverschiebung</translation>
    </message>
    <message>
        <source>Zero point offset</source>
        <translation>Nullpunktverschiebung</translation>
    </message>
    <message>
        <source>x [mm]</source>
        <translation>x [mm]</translation>
    </message>
    <message>
        <source>y [mm]</source>
        <translation>y [mm]</translation>
    </message>
    <message>
        <source>z [mm]</source>
        <translation>z [mm]</translation>
    </message>
    <message>
        <source>Reset x, y, z to 0.00</source>
        <translation>x, y, z auf 0.00 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset vector</source>
        <translation>Vektor auf 0</translation>
    </message>
    <message>
        <source>Rotation angles:
rx (eta)    range [-179 deg .. +180 deg]
ry (theta) range [-  90 deg .. +  90 deg]
rz (phi)    range [-179 deg .. +180 deg]</source>
        <translation>Drehwinkel:
rx (eta)    Bereich [-179 Grad .. +180 Grad]
ry (theta) Bereich [-  90 Grad .. +  90 Grad]
rz (phi)    Bereich [-179 Grad .. +180 Grad]</translation>
    </message>
    <message>
        <source>Rotation angles</source>
        <translation>Drehwinkel</translation>
    </message>
    <message>
        <source>rx [deg]</source>
        <translation>rx [Grad]</translation>
    </message>
    <message>
        <source>ry [deg]</source>
        <translation>ry [Grad]</translation>
    </message>
    <message>
        <source>rz [deg]</source>
        <translation>rz [Grad]</translation>
    </message>
    <message>
        <source>Reset rx, ry, rz to 0.00</source>
        <translation>rx, ry, rz auf 0.00 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset angles</source>
        <translation>Winkel auf 0</translation>
    </message>
    <message>
        <source>Scaling factor</source>
        <translation>Skalierungsfaktor</translation>
    </message>
    <message>
        <source>Scaling (+/- 5%)</source>
        <translation>Skalierung (+/- 5%)</translation>
    </message>
    <message>
        <source>factor</source>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>Reset scaling factor to 1.000</source>
        <translation>Skalierungsfaktor auf 1.000 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset scaling</source>
        <translation>Faktor auf 1</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:8pt;&quot;&gt;The transformation values rotate, shift, scale the room coordinate system relative to the original one&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:8pt;&quot;&gt;Die Werte drehen, verschieben und skalieren das Raumkoordinatensystem gegenüber dem ursprünglichen&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Adjust based on reference points</source>
        <translation>Justieren nach Referenzpunkten</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Change view position</source>
        <translation>Position der Ansicht ändern</translation>
    </message>
    <message>
        <source>View position</source>
        <translation>Position der Ansicht</translation>
    </message>
    <message>
        <source>Change view orientation</source>
        <translation>Ausrichtung der Ansicht ändern</translation>
    </message>
    <message>
        <source>View orientation</source>
        <translation>Ausrichtung der Ansicht</translation>
    </message>
    <message>
        <source>show XY</source>
        <translation>XY zeigen</translation>
    </message>
    <message>
        <source>show YZ</source>
        <translation>YZ zeigen</translation>
    </message>
    <message>
        <source>show XZ</source>
        <translation>XZ zeigen</translation>
    </message>
    <message>
        <source>long axes</source>
        <translation>lange Achsen</translation>
    </message>
    <message>
        <source>Show help dialog</source>
        <translation>Hilfe anzeigen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Adjust 3D view</source>
        <translation>3D-Ansicht anpassen</translation>
    </message>
    <message>
        <source>Adjust view</source>
        <translation>Ansicht anpassen</translation>
    </message>
    <message>
        <source>Reset 3D view</source>
        <translation>3D-Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>Reset view</source>
        <translation>Ansicht zurücksetzen</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Control of the graphic view</source>
        <translation>Steuerung der grafischen Ansicht</translation>
    </message>
    <message>
        <source>panning:</source>
        <translation>verschieben:</translation>
    </message>
    <message>
        <source>rotating:</source>
        <translation>drehen:</translation>
    </message>
    <message>
        <source>zoom in / out:</source>
        <translation>vergrößern / verkleinern:</translation>
    </message>
    <message>
        <source>Ctrl + left mouse button</source>
        <translation>Strg + linke Maustaste</translation>
    </message>
    <message>
        <source>Ctrl + right mouse button</source>
        <translation>Strg + rechte Maustaste</translation>
    </message>
    <message>
        <source>Ctrl + mouse wheel&lt;br&gt;
Shift + left mouse button</source>
        <translation>Strg + Mausrad&lt;br&gt;
Umschalt + linke Maustaste</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Alt+X</source>
        <translation>Alt+C</translation>
    </message>
</context>
<context>
    <name>MatchingHelpClass</name>
    <message>
        <source>Room Adjustment Based On Reference Points Help</source>
        <translation>Hilfe zur Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>Description how to do the room adjustment based on reference points</source>
        <translation>Anleitung zur Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>&lt;h3 style=&quot;margin-top:0px; margin-bottom:6px;&quot;&gt;How to carry out room adjustment based of reference points&lt;/h3&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Purpose:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;The purpose of the coordinate transformation is to convert the origin and orientation of the initial ZTK tracking system coordinate system (indicated with &amp;quot;O&amp;quot;) into a coordinate system given by a certain object (indicated with &amp;quot;T&amp;quot;). The effect will be that all 6DOF measurements of the targets will be delivered with reference to the object&amp;#8217;s coordinate system (T).&lt;/p&gt;</source>
        <translation>&lt;h3 style=&quot;margin-top:0px; margin-bottom:6px;&quot;&gt;So wird der Raum anhand von Referenzpunkten justiert&lt;/h3&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Zweck:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Die Koordinatentransformation überführt Ursprung und Ausrichtung des anfänglichen Koordinatensystems des ZTK-Trackingsystems (mit &amp;quot;O&amp;quot; bezeichnet) in ein Koordinatensystem, das durch ein bestimmtes Objekt gegeben ist (mit &amp;quot;T&amp;quot; bezeichnet). Danach werden alle 6DOF-Messungen der Targets im Koordinatensystem des Objekts (T) geliefert.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Step 1:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Add reference points of the object&apos;s coordinate system (T) by manually entering the coordinates into the table &apos;reference points&apos; using the button &apos;add&apos;&lt;br/&gt;or load the coordinates from a text file using the button &apos;load&apos;. The text file should be composed according to the following format:&lt;/p&gt;</source>
        <translation>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Schritt 1:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Referenzpunkte im Koordinatensystem des Objekts (T) mit &amp;quot;Hinzufügen&amp;quot; von Hand in die Tabelle &amp;quot;Referenzpunkte&amp;quot; eintragen&lt;br/&gt;oder mit &amp;quot;Laden&amp;quot; aus einer Textdatei laden. Die Textdatei ist so aufgebaut:&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;1. Column: Number of the reference point&lt;/li&gt;&lt;li&gt;2. Column: X coordinate of the reference point&lt;/li&gt;&lt;li&gt;3. Column: Y coordinate of the reference point&lt;/li&gt;&lt;li&gt;4. Column: Z coordinate of the reference point&lt;/li&gt;&lt;li&gt;The columns are separated by one or more whitespaces&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;1. Spalte: Nummer des Referenzpunkts&lt;/li&gt;&lt;li&gt;2. Spalte: x-Koordinate des Referenzpunkts&lt;/li&gt;&lt;li&gt;3. Spalte: y-Koordinate des Referenzpunkts&lt;/li&gt;&lt;li&gt;4. Spalte: z-Koordinate des Referenzpunkts&lt;/li&gt;&lt;li&gt;Die Spalten sind durch Leerzeichen getrennt&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Step 2:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Use a calibrated Measurement Tool inside the ZTK tracking system and touch the points on the object which directly relate to the reference points defined in step 1.&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Each measurement can be started by:&lt;/p&gt;&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;clicking the button &apos;Measure&apos;&lt;/li&gt;&lt;li&gt;clicking a button of the Measurement Tool&lt;/li&gt;&lt;li&gt;using the measurement start simulation of the Measurement Tool itself&lt;/li&gt;&lt;li&gt;clicking a button of an assigned Wandstick&lt;/li&gt;&lt;/ul&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Step 3:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;After having measured all reference points the result is displayed in the textbox &apos;transformation&apos;.&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Pressing &apos;OK&apos; accepts this transformation and closes the dialogue box.&lt;/p&gt;</source>
        <translation>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Schritt 2:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Mit einem kalibrierten Messwerkzeug des ZTK-Trackingsystems die Punkte des Objekts berühren, die zu den Referenzpunkten aus Schritt 1 gehören.&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Jede Messung lässt sich so starten:&lt;/p&gt;&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;mit der Schaltfläche &amp;quot;Messen&amp;quot;&lt;/li&gt;&lt;li&gt;mit einer Taste des Messwerkzeugs&lt;/li&gt;&lt;li&gt;mit der Startsimulation des Messwerkzeugs selbst&lt;/li&gt;&lt;li&gt;mit einer Taste eines zugeordneten Wandsticks&lt;/li&gt;&lt;/ul&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Schritt 3:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Sind alle Referenzpunkte gemessen, steht das Ergebnis im Feld &amp;quot;Transformation&amp;quot;.&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;&amp;quot;OK&amp;quot; übernimmt diese Transformation und schließt den Dialog.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentDlg2g</name>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>x [mm]</source>
        <translation>x [mm]</translation>
    </message>
    <message>
        <source>y [mm]</source>
        <translation>y [mm]</translation>
    </message>
    <message>
        <source>z [mm]</source>
        <translation>z [mm]</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Tracking is not available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Tracking ist nicht verfügbar!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Room Adjustment</source>
        <translation>Raumjustierung</translation>
    </message>
    <message>
        <source>Discard changes?</source>
        <translation>Änderungen verwerfen?</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentDlgClass</name>
    <message>
        <source>Room Adjustment</source>
        <translation>Raumjustierung</translation>
    </message>
    <message>
        <source>remove tab</source>
        <translation>remove tab</translation>
    </message>
    <message>
        <source>Accept changes and close dialog</source>
        <translation>Änderungen übernehmen und Dialog schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Apply changes</source>
        <translation>Änderungen anwenden</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>Discard changes and close dialog</source>
        <translation>Änderungen verwerfen und Dialog schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentModule2g</name>
    <message>
        <source>GUI Room Adjustment</source>
        <translation>GUI-Raumjustierung</translation>
    </message>
    <message>
        <source>&amp;Calibration</source>
        <translation>&amp;Kalibrierung</translation>
    </message>
    <message>
        <source>Room a&amp;djustment</source>
        <translation>Raum&amp;justierung</translation>
    </message>
    <message>
        <source>Shift+F5</source>
        <translation>Shift+F5</translation>
    </message>
    <message>
        <source>Perform the room adjustment incl. COOTrans</source>
        <translation>Raumjustierung einschließlich COOTrans durchführen</translation>
    </message>
    <message>
        <source>Adjust the room coordinate system</source>
        <translation>Raumkoordinatensystem justieren</translation>
    </message>
</context>
<context>
    <name>SearchWindow</name>
    <message>
        <source>Search for the order in which the points were measured</source>
        <translation>Suche nach der Reihenfolge, in der die Punkte gemessen wurden</translation>
    </message>
    <message>
        <source>Orders of the measured points are compared to find the one that fits best to the reference points.</source>
        <translation>Reihenfolgen der gemessenen Punkte werden verglichen, um die zu finden, die am besten zu den Referenzpunkten passt.</translation>
    </message>
    <message>
        <source>Orders fitted so far:</source>
        <translation>Bisher verglichene Reihenfolgen:</translation>
    </message>
    <message>
        <source>Best residual error so far:</source>
        <translation>Bisher kleinster Restfehler:</translation>
    </message>
    <message>
        <source>End the search without a result</source>
        <translation>Suche ohne Ergebnis beenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>none fits yet</source>
        <translation>noch passt keine</translation>
    </message>
</context>
<context>
    <name>xyzWidget</name>
    <message>
        <source>X :</source>
        <translation>X :</translation>
    </message>
    <message>
        <source>Y :</source>
        <translation>Y :</translation>
    </message>
    <message>
        <source>Z :</source>
        <translation>Z :</translation>
    </message>
</context>
</TS>

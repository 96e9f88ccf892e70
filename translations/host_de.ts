<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>FirstVisit</name>
    <message>
        <source>Save the &amp;points for me</source>
        <translation>&amp;Punkte für mich speichern</translation>
    </message>
    <message>
        <source>Your first visit</source>
        <translation>Ihr erster Besuch</translation>
    </message>
    <message>
        <source>Close the first visit</source>
        <translation>Den ersten Besuch schließen</translation>
    </message>
    <message>
        <source>Close; the menu Help brings it back</source>
        <translation>Schließen; das Menü Hilfe bringt es zurück</translation>
    </message>
    <message>
        <source>1. Save the object&apos;s reference points in the simulator&apos;s window.</source>
        <translation>1. Speichern Sie die Referenzpunkte des Objekts im Fenster des Simulators.</translation>
    </message>
    <message>
        <source>1. The object&apos;s reference points are in %1.</source>
        <translation>1. Die Referenzpunkte des Objekts stehen in %1.</translation>
    </message>
    <message>
        <source>2. Open Calibration / Room adjustment (Shift+F5), tab &quot;Fine&quot;.</source>
        <translation>2. Öffnen Sie Kalibrierung / Raumjustierung (Umschalt+F5), Reiter &quot;Fein&quot;.</translation>
    </message>
    <message>
        <source>3. Press Start, then load the file of the reference points.</source>
        <translation>3. Drücken Sie Start und laden Sie die Datei der Referenzpunkte.</translation>
    </message>
    <message>
        <source>4. Touch each point of the object in the simulator&apos;s window and measure it there: %1 of %2.</source>
        <translation>4. Berühren Sie im Fenster des Simulators jeden Punkt des Objekts und messen Sie ihn dort: %1 von %2.</translation>
    </message>
    <message>
        <source>4. Touch each point of the object in the simulator&apos;s window and measure it there.</source>
        <translation>4. Berühren Sie im Fenster des Simulators jeden Punkt des Objekts und messen Sie ihn dort.</translation>
    </message>
    <message>
        <source>5. Accept the result with OK, then press Apply.</source>
        <translation>5. Nehmen Sie das Ergebnis mit OK an und drücken Sie dann Übernehmen.</translation>
    </message>
    <message>
        <source>6. Touch point 1 again: the simulator shows the tip at 0.0 0.0 0.0, because the room now begins there.</source>
        <translation>6. Berühren Sie Punkt 1 noch einmal: Der Simulator zeigt die Spitze bei 0.0 0.0 0.0, denn dort beginnt der Raum jetzt.</translation>
    </message>
    <message>
        <source>Done: </source>
        <translation>Erledigt: </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Tracking Control</source>
        <translation>Tracking Control</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>C&amp;lear panes</source>
        <translation>&amp;Felder leeren</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Front-end for a tracking controller.

Loads modules, passes their texts to the controller and delivers its tracking data to them.</source>
        <translation>Front-End für einen Tracking-Controller.

Lädt Module, reicht ihre Texte an den Controller weiter und liefert ihnen dessen Trackingdaten.</translation>
    </message>
    <message>
        <source>&amp;Start the simulator again</source>
        <translation>&amp;Simulator neu starten</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>Controller</translation>
    </message>
    <message>
        <source>The tracking simulator has ended.</source>
        <translation>Der Tracking-Simulator ist beendet.</translation>
    </message>
    <message>
        <source>Start the simulator again</source>
        <translation>Simulator neu starten</translation>
    </message>
    <message>
        <source>Save &amp;messages...</source>
        <translation>&amp;Meldungen speichern...</translation>
    </message>
    <message>
        <source>Save &amp;traffic...</source>
        <translation>Controller-&amp;Verkehr speichern...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>Textdateien (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;First visit</source>
        <translation>&amp;Erster Besuch</translation>
    </message>
    <message>
        <source>First visit</source>
        <translation>Erster Besuch</translation>
    </message>
</context>
<context>
    <name>MessagePane</name>
    <message>
        <source>Messages of the modules appear here.</source>
        <translation>Hier erscheinen Meldungen der Module.</translation>
    </message>
    <message>
        <source>M&amp;essages</source>
        <translation>M&amp;eldungen</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close the notice</source>
        <translation>Hinweis schließen</translation>
    </message>
    <message>
        <source>  (%1 times)</source>
        <translation>  (%1-mal)</translation>
    </message>
    <message>
        <source>Click to close</source>
        <translation>Klicken schließt den Hinweis</translation>
    </message>
    <message>
        <source>Click to keep it here</source>
        <translation>Klicken hält den Hinweis fest</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>Notices</source>
        <translation>Hinweise</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>Observer: nothing can be changed</source>
        <translation>Beobachter: Nichts kann geändert werden</translation>
    </message>
    <message>
        <source>The controller at %1 does not tell its version: %2</source>
        <translation>Der Controller unter %1 nennt seine Version nicht: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a version</source>
        <translation>„%1“ ist keine Version</translation>
    </message>
    <message>
        <source>There is no port to receive data on</source>
        <translation>Es gibt keinen Port, um Daten zu empfangen</translation>
    </message>
    <message>
        <source>The controller does not send data</source>
        <translation>Der Controller sendet keine Daten</translation>
    </message>
    <message>
        <source>Module loaded: %1</source>
        <translation>Modul geladen: %1</translation>
    </message>
    <message>
        <source>There is no host %1: %2</source>
        <translation>Es gibt keinen Rechner %1: %2</translation>
    </message>
    <message>
        <source>The controller answers again</source>
        <translation>Der Controller antwortet wieder</translation>
    </message>
    <message>
        <source>The controller does not answer</source>
        <translation>Der Controller antwortet nicht</translation>
    </message>
    <message>
        <source>The points were not saved: %1</source>
        <translation>Die Punkte wurden nicht gespeichert: %1</translation>
    </message>
</context>
<context>
    <name>StatusTexts</name>
    <message>
        <source>Controller is starting</source>
        <translation>Controller startet</translation>
    </message>
    <message>
        <source>Controller %1</source>
        <translation>Controller %1</translation>
    </message>
    <message>
        <source>Controller %1 answers too slowly</source>
        <translation>Controller %1 antwortet zu langsam</translation>
    </message>
    <message>
        <source>Controller %1 does not answer</source>
        <translation>Controller %1 antwortet nicht</translation>
    </message>
    <message>
        <source>The tracking simulator has ended</source>
        <translation>Der Tracking-Simulator ist beendet</translation>
    </message>
    <message>
        <source>Backend %1 | %2</source>
        <translation>Backend %1 | %2</translation>
    </message>
    <message>
        <source>, %1 torn</source>
        <translation>, %1 abgerissen</translation>
    </message>
    <message>
        <source>, %1 from elsewhere refused</source>
        <translation>, %1 von anderswo abgelehnt</translation>
    </message>
    <message>
        <source>, recording to %1</source>
        <translation>, Aufzeichnung in %1</translation>
    </message>
    <message>
        <source>Replay of %1, %2 lines</source>
        <translation>Wiedergabe von %1, %2 Zeilen</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>keine Daten</translation>
    </message>
    <message>
        <source>tracking, but no data for %1 s</source>
        <translation>Tracking läuft, aber seit %1 s keine Daten</translation>
    </message>
    <message>
        <source>Data %1 frames/s</source>
        <translation>Daten: %1 Bilder/s</translation>
    </message>
    <message>
        <source>not tracking</source>
        <translation>kein Tracking</translation>
    </message>
</context>
<context>
    <name>TrafficModel</name>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>ok</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>nicht gesendet</translation>
    </message>
    <message>
        <source>unknown outcome</source>
        <translation>Ausgang unbekannt</translation>
    </message>
</context>
<context>
    <name>TrafficPane</name>
    <message>
        <source>Show &amp;queries</source>
        <translation>&amp;Abfragen zeigen</translation>
    </message>
    <message>
        <source>Controller traffic</source>
        <translation>Controller-Verkehr</translation>
    </message>
    <message>
        <source>Con&amp;troller traffic</source>
        <translation>Con&amp;troller-Verkehr</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern...</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>%1 exists. Shall it be overwritten?</source>
        <translation>%1 existiert. Soll die Datei überschrieben werden?</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
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

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CImportServiceReport</name>
    <message>
        <source>Not enough memory for the import.</source>
        <translation>Nicht genug Speicher für den Import.</translation>
    </message>
    <message>
        <source>the file could not be read to its end: %1</source>
        <translation>die Datei konnte nicht bis zum Ende gelesen werden: %1</translation>
    </message>
    <message>
        <source>element &apos;%1&apos; is not expected here, passed over</source>
        <translation>Element »%1« wird hier nicht erwartet, übergangen</translation>
    </message>
    <message>
        <source>the root element is &apos;%1&apos;, not &apos;TestReport&apos;</source>
        <translation>das Wurzelelement ist »%1«, nicht »TestReport«</translation>
    </message>
    <message>
        <source>the report has no version</source>
        <translation>der Bericht hat keine Version</translation>
    </message>
    <message>
        <source>version &apos;%1&apos; is not known, only &apos;%2&apos;</source>
        <translation>Version »%1« ist nicht bekannt, nur »%2«</translation>
    </message>
    <message>
        <source>element &apos;%1&apos; is not expected in &apos;%2&apos;, skipped</source>
        <translation>Element »%1« wird in »%2« nicht erwartet, übersprungen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an integer of 32 bits, read as 0</source>
        <translation>»%1« ist keine ganze Zahl mit 32 Bit, als 0 gelesen</translation>
    </message>
    <message>
        <source>duration &apos;%1&apos; is not a number, read as 0</source>
        <translation>Dauer »%1« ist keine Zahl, als 0 gelesen</translation>
    </message>
    <message>
        <source>there is more, which is not listed</source>
        <translation>es gibt mehr, das nicht aufgeführt ist</translation>
    </message>
    <message>
        <source>&apos;%1&apos; of a unit that has no name yet, not read</source>
        <translation>»%1« eines Prüflings, der noch keinen Namen hat, nicht gelesen</translation>
    </message>
    <message>
        <source>&apos;ProductType&apos; before any &apos;UnitUnderTest&apos;, not read</source>
        <translation>»ProductType« vor jedem »UnitUnderTest«, nicht gelesen</translation>
    </message>
    <message>
        <source>order code of a lot that has no number yet, not read</source>
        <translation>Auftragsnummer eines Loses, das noch keine Nummer hat, nicht gelesen</translation>
    </message>
    <message>
        <source>ident &apos;%1&apos; is not a number, read as 0</source>
        <translation>Kennung »%1« ist keine Zahl, als 0 gelesen</translation>
    </message>
    <message>
        <source>step &apos;%1&apos; before any group, in no program</source>
        <translation>Schritt »%1« vor jeder Gruppe, in keinem Programm</translation>
    </message>
    <message>
        <source>measurement &apos;%1&apos; has no limits, takes those of the one before</source>
        <translation>Messung »%1« hat keine Grenzen, nimmt die der vorigen</translation>
    </message>
    <message>
        <source>measurement &apos;%1&apos; before any step, in no program</source>
        <translation>Messung »%1« vor jedem Schritt, in keinem Programm</translation>
    </message>
    <message>
        <source>no limits are known for data type %1</source>
        <translation>für Datentyp %1 sind keine Grenzen bekannt</translation>
    </message>
    <message>
        <source>value &apos;%1&apos; is not a number, read as 0</source>
        <translation>Wert »%1« ist keine Zahl, als 0 gelesen</translation>
    </message>
    <message>
        <source>limits that are no numbers or have an unknown operator</source>
        <translation>Grenzen, die keine Zahlen sind oder einen unbekannten Operator haben</translation>
    </message>
    <message>
        <source>limits that do not fit 32 bits, changed to such that do</source>
        <translation>Grenzen, die nicht in 32 Bit passen, passend gemacht</translation>
    </message>
    <message>
        <source>property &apos;%1&apos; of &apos;%2&apos; is unknown, not read</source>
        <translation>Eigenschaft »%1« von »%2« ist unbekannt, nicht gelesen</translation>
    </message>
    <message>
        <source>text in &apos;%1&apos; outside of a property or behind its first piece, not read</source>
        <translation>Text in »%1« außerhalb einer Eigenschaft oder hinter deren erstem Stück, nicht gelesen</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>No valid format provided.</source>
        <translation>Kein gültiges Format angegeben.</translation>
    </message>
    <message>
        <source>No filename provided.</source>
        <translation>Kein Dateiname angegeben.</translation>
    </message>
    <message>
        <source>Could not create file: %1</source>
        <translation>Datei konnte nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Not enough memory for the export.</source>
        <translation>Nicht genug Speicher für den Export.</translation>
    </message>
    <message>
        <source>The export failed inside the test data.</source>
        <translation>Der Export ist in den Testdaten gescheitert.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Documents that declare entities are not supported</source>
        <translation>Dokumente, die Entitäten deklarieren, werden nicht unterstützt</translation>
    </message>
    <message>
        <source>Ident</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>LL</source>
        <translation>UG</translation>
    </message>
    <message>
        <source>UL</source>
        <translation>OG</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Panel Item</source>
        <translation>Nutzenteil</translation>
    </message>
    <message>
        <source>Test Result</source>
        <translation>Testergebnis</translation>
    </message>
    <message>
        <source>Test Date/Time</source>
        <translation>Testzeitpunkt</translation>
    </message>
    <message>
        <source>Test Duration</source>
        <translation>Testdauer</translation>
    </message>
    <message>
        <source>UUT SerialNo.</source>
        <translation>Seriennr. des Prüflings</translation>
    </message>
    <message>
        <source>UUT Identification</source>
        <translation>Kennung des Prüflings</translation>
    </message>
    <message>
        <source>Product Name</source>
        <translation>Produktname</translation>
    </message>
    <message>
        <source>Product Description</source>
        <translation>Produktbeschreibung</translation>
    </message>
    <message>
        <source>Article Code</source>
        <translation>Artikelnummer</translation>
    </message>
    <message>
        <source>Customer</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Lot Name</source>
        <translation>Losname</translation>
    </message>
    <message>
        <source>KVA Version</source>
        <translation>KVA-Version</translation>
    </message>
    <message>
        <source>Test Machine</source>
        <translation>Testmaschine</translation>
    </message>
    <message>
        <source>Workspace</source>
        <translation>Arbeitsbereich</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Bediener</translation>
    </message>
    <message>
        <source>Fixture Type</source>
        <translation>Adaptertyp</translation>
    </message>
    <message>
        <source>Fixture SerialNo.</source>
        <translation>Seriennr. des Adapters</translation>
    </message>
    <message>
        <source>Program:</source>
        <translation>Programm:</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Results:</source>
        <translation>Ergebnisse:</translation>
    </message>
    <message>
        <source>Testplan File</source>
        <translation>Testplandatei</translation>
    </message>
    <message>
        <source>Could not open file: %1 (%2)</source>
        <translation>Datei konnte nicht geöffnet werden: %1 (%2)</translation>
    </message>
    <message>
        <source>Not enough memory to read file: %1</source>
        <translation>Nicht genug Speicher, um die Datei zu lesen: %1</translation>
    </message>
    <message>
        <source>%1	Line %2, column %3</source>
        <translation>%1	Zeile %2, Spalte %3</translation>
    </message>
    <message>
        <source>The file is not an TestPlan file</source>
        <translation>Die Datei ist keine TestPlan-Datei</translation>
    </message>
    <message>
        <source>Only TestPlan file versions 2.0.0 and 3.0.0 are supported</source>
        <translation>Nur die Versionen 2.0.0 und 3.0.0 von TestPlan-Dateien werden unterstützt</translation>
    </message>
    <message>
        <source>The document is not in the encoding that it names: %1</source>
        <translation>Das Dokument ist nicht in der Kodierung, die es nennt: %1</translation>
    </message>
    <message>
        <source>Documents that declare attributes are not supported</source>
        <translation>Dokumente, die Attribute deklarieren, werden nicht unterstützt</translation>
    </message>
    <message>
        <source>The start tag in line %1 has more than %2 attributes</source>
        <translation>Das Start-Tag in Zeile %1 hat mehr als %2 Attribute</translation>
    </message>
    <message>
        <source>its texts hold more than %1 HTML elements inside each other</source>
        <translation>seine Texte enthalten mehr als %1 ineinander liegende HTML-Elemente</translation>
    </message>
    <message>
        <source>a text holds HTML tables more than %1 deep inside each other</source>
        <translation>ein Text enthält mehr als %1 ineinander liegende HTML-Tabellen</translation>
    </message>
    <message>
        <source>it has more than %1 tables</source>
        <translation>er hat mehr als %1 Tabellen</translation>
    </message>
    <message>
        <source>a text holds an HTML table of more than %1 columns</source>
        <translation>ein Text enthält eine HTML-Tabelle mit mehr als %1 Spalten</translation>
    </message>
    <message>
        <source>a text has more than %1 characters without a blank</source>
        <translation>ein Text hat mehr als %1 Zeichen ohne ein Leerzeichen</translation>
    </message>
    <message>
        <source>A PDF report needs a QGuiApplication for its fonts; no file is made.</source>
        <translation>Ein PDF-Bericht braucht wegen der Schriften eine QGuiApplication; es entsteht keine Datei.</translation>
    </message>
    <message>
        <source>%1 is no file.</source>
        <translation>%1 ist keine Datei.</translation>
    </message>
    <message>
        <source>spreadsheets</source>
        <translation>Tabellenkalkulation</translation>
    </message>
    <message>
        <source>reading and printing as plain text</source>
        <translation>Lesen und Drucken als reiner Text</translation>
    </message>
    <message>
        <source>native: everything that is read back</source>
        <translation>das eigene: alles, was wieder gelesen wird</translation>
    </message>
    <message>
        <source>printing and archives</source>
        <translation>Druck und Archiv</translation>
    </message>
    <message>
        <source>browsers</source>
        <translation>Browser</translation>
    </message>
    <message>
        <source>programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>yield tools: STDF V4, appended to a lot file</source>
        <translation>Ausbeuteanalyse: STDF V4, an eine Losdatei angefügt</translation>
    </message>
</context>
<context>
    <name>ReportRuns</name>
    <message>
        <source>the file cannot be opened: %1</source>
        <translation>die Datei lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>the compressed file is cut off</source>
        <translation>die komprimierte Datei ist abgeschnitten</translation>
    </message>
    <message>
        <source>the compressed file is damaged: %1</source>
        <translation>die komprimierte Datei ist beschädigt: %1</translation>
    </message>
    <message>
        <source>no well-formed XML: %1</source>
        <translation>kein wohlgeformtes XML: %1</translation>
    </message>
    <message>
        <source>a start tag with more than %1 attributes</source>
        <translation>ein Start-Tag mit mehr als %1 Attributen</translation>
    </message>
    <message>
        <source>entity &apos;%1&apos; is not declared</source>
        <translation>Entität &apos;%1&apos; ist nicht deklariert</translation>
    </message>
    <message>
        <source>element &apos;%1&apos; is not expected here</source>
        <translation>Element &apos;%1&apos; wird hier nicht erwartet</translation>
    </message>
    <message>
        <source>element &apos;%1&apos; is not expected in &apos;%2&apos;</source>
        <translation>Element &apos;%1&apos; wird in &apos;%2&apos; nicht erwartet</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not an integer of 32 bits</source>
        <translation>&apos;%1&apos; ist keine ganze Zahl mit 32 Bit</translation>
    </message>
    <message>
        <source>duration &apos;%1&apos; is not a number</source>
        <translation>Dauer &apos;%1&apos; ist keine Zahl</translation>
    </message>
    <message>
        <source>property &apos;%1&apos; of &apos;%2&apos; is unknown</source>
        <translation>Eigenschaft &apos;%1&apos; von &apos;%2&apos; ist unbekannt</translation>
    </message>
    <message>
        <source>text in &apos;%1&apos; outside of a property or behind its first piece</source>
        <translation>Text in &apos;%1&apos; außerhalb einer Eigenschaft oder hinter ihrem ersten Stück</translation>
    </message>
    <message>
        <source>&apos;%1&apos; of a unit that has no name yet</source>
        <translation>&apos;%1&apos; eines Prüflings, der noch keinen Namen hat</translation>
    </message>
    <message>
        <source>order code of a lot that has no number yet</source>
        <translation>Auftrag eines Loses, das noch keine Nummer hat</translation>
    </message>
    <message>
        <source>&apos;ProductType&apos; before any &apos;UnitUnderTest&apos;</source>
        <translation>&apos;ProductType&apos; vor dem ersten &apos;UnitUnderTest&apos;</translation>
    </message>
    <message>
        <source>value &apos;%1&apos; is not a number</source>
        <translation>Wert &apos;%1&apos; ist keine Zahl</translation>
    </message>
</context>
<context>
    <name>StdfRuns</name>
    <message>
        <source>no STDF file: it does not begin with a FAR</source>
        <translation>keine STDF-Datei: sie beginnt nicht mit einem FAR</translation>
    </message>
    <message>
        <source>STDF version %1 is not known, only 4</source>
        <translation>STDF-Version %1 ist nicht bekannt, nur 4</translation>
    </message>
    <message>
        <source>real numbers in the format of a VAX are not understood</source>
        <translation>Gleitkommazahlen im Format einer VAX werden nicht verstanden</translation>
    </message>
    <message>
        <source>the file ends inside a record</source>
        <translation>die Datei endet mitten in einem Datensatz</translation>
    </message>
    <message>
        <source>the file ends without an MRR</source>
        <translation>die Datei endet ohne MRR</translation>
    </message>
    <message>
        <source>records that end inside a field: %1, the first one a %2</source>
        <translation>Datensätze, die mitten in einem Feld enden: %1, der erste ein %2</translation>
    </message>
    <message>
        <source>results of tests that belong to no part: %1</source>
        <translation>Ergebnisse von Tests, die zu keinem Teil gehören: %1</translation>
    </message>
    <message>
        <source>parts without a PIR, read without values: %1</source>
        <translation>Teile ohne PIR, ohne Werte gelesen: %1</translation>
    </message>
    <message>
        <source>parts without a PRR, left out: %1</source>
        <translation>Teile ohne PRR, ausgelassen: %1</translation>
    </message>
    <message>
        <source>there is no MIR before the parts</source>
        <translation>vor den Teilen steht kein MIR</translation>
    </message>
    <message>
        <source>more tests, or more values at once, than any tester has</source>
        <translation>mehr Tests oder mehr Werte zugleich, als ein Tester hat</translation>
    </message>
</context>
<context>
    <name>Texts</name>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>Yield</source>
        <translation>Ausbeute</translation>
    </message>
    <message>
        <source>First-pass yield</source>
        <translation>Ausbeute im ersten Durchgang</translation>
    </message>
</context>
<context>
    <name>ZYNArchive</name>
    <message>
        <source>%1: there is no such archive; make one with zyn archive create</source>
        <translation>%1: dieses Archiv gibt es nicht; zyn archive create legt eines an</translation>
    </message>
    <message>
        <source>%1: already exists; choose another name</source>
        <translation>%1: gibt es schon; einen anderen Namen wählen</translation>
    </message>
    <message>
        <source>No archive is open</source>
        <translation>Kein Archiv ist geöffnet</translation>
    </message>
    <message>
        <source>A password does not belong into an address; put it into the file ~/.pgpass (HOST:PORT:DATABASE:USER:PASSWORD) and leave it out</source>
        <translation>Ein Passwort gehört nicht in eine Adresse; in die Datei ~/.pgpass schreiben (HOST:PORT:DATABASE:USER:PASSWORD) und weglassen</translation>
    </message>
    <message>
        <source>The address of the server cannot be read; write postgresql://USER@HOST:PORT/DATABASE</source>
        <translation>Die Adresse des Servers ist nicht lesbar; postgresql://USER@HOST:PORT/DATABASE schreiben</translation>
    </message>
    <message>
        <source>%1: the parameter &quot;%2&quot; is not understood; there are host, port, user, %3</source>
        <translation>%1: der Parameter &quot;%2&quot; ist unbekannt; es gibt host, port, user, %3</translation>
    </message>
    <message>
        <source>%1 names no database; write postgresql://USER@HOST:PORT/DATABASE</source>
        <translation>%1 nennt keine Datenbank; postgresql://USER@HOST:PORT/DATABASE schreiben</translation>
    </message>
    <message>
        <source>temporary archive</source>
        <translation>vorübergehendes Archiv</translation>
    </message>
    <message>
        <source>Qt&apos;s driver %1 is missing; install the package %2</source>
        <translation>Der Treiber %1 von Qt fehlt; das Paket %2 installieren</translation>
    </message>
    <message>
        <source>%1: its folder is read-only, and runs wait in %1-wal; copy both files to a folder that can be written</source>
        <translation>%1: der Ordner ist nur lesbar, und in %1-wal warten Läufe; beide Dateien in einen beschreibbaren Ordner kopieren</translation>
    </message>
    <message>
        <source>another program has been writing into it for a minute; wait for it and try again</source>
        <translation>ein anderes Programm schreibt seit einer Minute hinein; abwarten und noch einmal versuchen</translation>
    </message>
    <message>
        <source>check the permissions of the file and its folder</source>
        <translation>die Rechte der Datei und ihres Ordners prüfen</translation>
    </message>
    <message>
        <source>the disk or network drive reports a fault; check it</source>
        <translation>die Platte oder das Netzlaufwerk meldet einen Fehler; prüfen</translation>
    </message>
    <message>
        <source>restore it from a backup, or make a new archive from the reports</source>
        <translation>aus einer Sicherung wiederherstellen oder aus den Berichten ein neues Archiv anlegen</translation>
    </message>
    <message>
        <source>what was added before is there, so make room and try again</source>
        <translation>was vorher aufgenommen wurde, ist da; Platz schaffen und noch einmal versuchen</translation>
    </message>
    <message>
        <source>check its name and the permissions of file and folder</source>
        <translation>den Namen und die Rechte von Datei und Ordner prüfen</translation>
    </message>
    <message>
        <source>members of zyn_writer may add, those of zyn_viewer may ask, and the owner of the database may create</source>
        <translation>Mitglieder von zyn_writer dürfen aufnehmen, die von zyn_viewer fragen, und der Eigentümer der Datenbank darf anlegen</translation>
    </message>
    <message>
        <source>make the database first: createdb NAME</source>
        <translation>zuerst die Datenbank anlegen: createdb NAME</translation>
    </message>
    <message>
        <source>the server is short of disk, memory or connections; what was added before is there, so mend that and try again</source>
        <translation>dem Server fehlen Platz, Speicher oder Verbindungen; was vorher aufgenommen wurde, ist da; das beheben und noch einmal versuchen</translation>
    </message>
    <message>
        <source>check that the server runs, its address, and the password in ~/.pgpass</source>
        <translation>prüfen, ob der Server läuft, ob die Adresse stimmt und das Passwort in ~/.pgpass</translation>
    </message>
    <message>
        <source>the connection to the server was lost; what was added before is there, so try again</source>
        <translation>die Verbindung zum Server ging verloren; was vorher aufgenommen wurde, ist da; noch einmal versuchen</translation>
    </message>
    <message>
        <source>serial &apos;%1&apos; of product &apos;%2&apos; stands in several lots (%3) and counts as several units; --across-lots joins them</source>
        <translation>Seriennummer &apos;%1&apos; des Produkts &apos;%2&apos; steht in mehreren Losen (%3) und zählt als mehrere Prüflinge; --across-lots verbindet sie</translation>
    </message>
    <message>
        <source>the database is encoded in %1; make one with createdb -E UTF8 -T template0</source>
        <translation>die Datenbank ist in %1 kodiert; eine mit createdb -E UTF8 -T template0 anlegen</translation>
    </message>
    <message>
        <source>is an archive already</source>
        <translation>ist schon ein Archiv</translation>
    </message>
    <message>
        <source>the database holds tables already; make an empty one with createdb</source>
        <translation>die Datenbank enthält schon Tabellen; mit createdb eine leere anlegen</translation>
    </message>
    <message>
        <source>this user may not make the roles that an archive needs; let an administrator do it: CREATE ROLE zyn_writer; CREATE ROLE zyn_viewer</source>
        <translation>dieser Benutzer darf die Rollen nicht anlegen, die ein Archiv braucht; ein Verwalter kann es: CREATE ROLE zyn_writer; CREATE ROLE zyn_viewer</translation>
    </message>
    <message>
        <source>holds no archive; make one with zyn archive create</source>
        <translation>enthält kein Archiv; zyn archive create legt eines an</translation>
    </message>
    <message>
        <source>is empty; remove it and make an archive with zyn archive create</source>
        <translation>ist leer; entfernen und mit zyn archive create ein Archiv anlegen</translation>
    </message>
    <message>
        <source>is a database of another program; choose another name</source>
        <translation>ist eine Datenbank eines anderen Programms; einen anderen Namen wählen</translation>
    </message>
    <message>
        <source>is an archive of version %1, and this program knows version %2; install a newer one</source>
        <translation>ist ein Archiv der Version %1, und dieses Programm kennt Version %2; ein neueres installieren</translation>
    </message>
    <message>
        <source>is an archive of version %1, and this program needs version %2; bring it up to date with zyn archive upgrade %3</source>
        <translation>ist ein Archiv der Version %1, und dieses Programm braucht Version %2; mit zyn archive upgrade %3 auf den Stand bringen</translation>
    </message>
    <message>
        <source>a server that keeps some of the products is away; try again later, or ask with --product about others</source>
        <translation>ein Server, der einige der Produkte führt, ist nicht da; später noch einmal versuchen oder mit --product nach anderen fragen</translation>
    </message>
    <message>
        <source>a unit without serial</source>
        <translation>eines Prüflings ohne Seriennummer</translation>
    </message>
    <message>
        <source>unit &apos;%1&apos;</source>
        <translation>des Prüflings &apos;%1&apos;</translation>
    </message>
    <message>
        <source>%1: the run of %2 has no start; it comes last</source>
        <translation>%1: der Lauf %2 hat keinen Beginn; er kommt zuletzt</translation>
    </message>
    <message>
        <source>%1: the start &apos;%2&apos; of %3 cannot be read; its run comes last</source>
        <translation>%1: der Beginn &apos;%2&apos; %3 ist nicht lesbar; sein Lauf kommt zuletzt</translation>
    </message>
    <message>
        <source>only asks other servers, and keeps nothing; make its database anew with postgresql-asking.sql</source>
        <translation>fragt nur andere Server und bewahrt selbst nichts auf; seine Datenbank mit postgresql-asking.sql neu anlegen</translation>
    </message>
</context>
<context>
    <name>stdf</name>
    <message>
        <source>head %1, site %2</source>
        <translation>Kopf %1, Platz %2</translation>
    </message>
    <message>
        <source>a further stream begins here</source>
        <translation>hier beginnt ein weiterer Datenstrom</translation>
    </message>
    <message>
        <source>a further stream begins here; the one before has no MRR</source>
        <translation>hier beginnt ein weiterer Datenstrom; der vorige hat keinen MRR</translation>
    </message>
    <message>
        <source>FAR: it has two bytes of data, not %1</source>
        <translation>FAR: er hat zwei Byte Daten, nicht %1</translation>
    </message>
    <message>
        <source>FAR: version %1 instead of 4</source>
        <translation>FAR: Version %1 statt 4</translation>
    </message>
    <message>
        <source>FAR: real numbers are in the VAX format and are not understood</source>
        <translation>FAR: Gleitkommazahlen sind im VAX-Format und werden nicht verstanden</translation>
    </message>
    <message>
        <source>FAR: unknown CPU_TYPE %1</source>
        <translation>FAR: unbekannter CPU_TYPE %1</translation>
    </message>
    <message>
        <source>a record</source>
        <translation>ein Datensatz</translation>
    </message>
    <message>
        <source>the file begins with %1, not with a FAR</source>
        <translation>die Datei beginnt mit %1, nicht mit einem FAR</translation>
    </message>
    <message>
        <source>%1 follows the MRR</source>
        <translation>%1 folgt auf den MRR</translation>
    </message>
    <message>
        <source>a second MIR</source>
        <translation>ein zweiter MIR</translation>
    </message>
    <message>
        <source>%1 where the MIR is expected</source>
        <translation>%1, wo der MIR erwartet wird</translation>
    </message>
    <message>
        <source>PIR: the part at %1 from offset %2 has no PRR</source>
        <translation>PIR: das Teil an %1 ab Byte %2 hat keinen PRR</translation>
    </message>
    <message>
        <source>%1: test %2 at %3 belongs to no part: there is no PIR before it</source>
        <translation>%1: Test %2 an %3 gehört zu keinem Teil: davor steht kein PIR</translation>
    </message>
    <message>
        <source>PRR: there is no PIR before it at %1</source>
        <translation>PRR: davor steht kein PIR an %1</translation>
    </message>
    <message numerus="yes">
        <source>PRR: NUM_TEST is %1, the part has %n tests</source>
        <translation>
            <numerusform>PRR: NUM_TEST ist %1, das Teil hat %n Test</numerusform>
            <numerusform>PRR: NUM_TEST ist %1, das Teil hat %n Tests</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PCR: PART_CNT is %1, there are %n parts</source>
        <translation>
            <numerusform>PCR: PART_CNT ist %1, vorhanden ist %n Teil</numerusform>
            <numerusform>PCR: PART_CNT ist %1, vorhanden sind %n Teile</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PCR: GOOD_CNT is %1, only %n parts have passed</source>
        <translation>
            <numerusform>PCR: GOOD_CNT ist %1, bestanden hat nur %n Teil</numerusform>
            <numerusform>PCR: GOOD_CNT ist %1, bestanden haben nur %n Teile</numerusform>
        </translation>
    </message>
    <message>
        <source>the part at %1 from offset %2 has no PRR</source>
        <translation>das Teil an %1 ab Byte %2 hat keinen PRR</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>the file ends without an MRR</source>
        <translation>die Datei endet ohne MRR</translation>
    </message>
    <message numerus="yes">
        <source>%n records of the unknown type %1, subtype %2</source>
        <translation>
            <numerusform>%n Datensatz des unbekannten Typs %1, Untertyp %2</numerusform>
            <numerusform>%n Datensätze des unbekannten Typs %1, Untertyp %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and more: %n faults in all</source>
        <translation>
            <numerusform>und mehr: insgesamt %n Fehler</numerusform>
            <numerusform>und mehr: insgesamt %n Fehler</numerusform>
        </translation>
    </message>
    <message>
        <source>the record ends inside the field %1</source>
        <translation>der Datensatz endet mitten im Feld %1</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes follow the last field</source>
        <translation>
            <numerusform>auf das letzte Feld folgt noch %n Byte</numerusform>
            <numerusform>auf das letzte Feld folgen noch %n Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>not enough memory to decompress</source>
        <translation>nicht genug Speicher zum Entpacken</translation>
    </message>
    <message>
        <source>the gzip data breaks off</source>
        <translation>die gzip-Daten brechen ab</translation>
    </message>
    <message>
        <source>the gzip data is damaged</source>
        <translation>die gzip-Daten sind beschädigt</translation>
    </message>
    <message>
        <source>the file ends inside a record header</source>
        <translation>die Datei endet mitten im Kopf eines Datensatzes</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Hard bin</source>
        <translation>Hard-Bin</translation>
    </message>
    <message>
        <source>Soft bin</source>
        <translation>Soft-Bin</translation>
    </message>
    <message>
        <source>Tests</source>
        <translation>Tests</translation>
    </message>
    <message>
        <source>Time [s]</source>
        <translation>Zeit [s]</translation>
    </message>
    <message>
        <source>Ident</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Low limit</source>
        <translation>Untergrenze</translation>
    </message>
    <message>
        <source>High limit</source>
        <translation>Obergrenze</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skala</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message numerus="yes">
        <source>%n parts</source>
        <translation>
            <numerusform>%n Teil</numerusform>
            <numerusform>%n Teile</numerusform>
        </translation>
    </message>
    <message>
        <source>Counted: %1 parts, %2 good</source>
        <translation>Gezählt: %1 Teile, davon %2 gut</translation>
    </message>
    <message>
        <source>Finished: %1</source>
        <translation>Beendet: %1</translation>
    </message>
    <message>
        <source>Lot</source>
        <translation>Los</translation>
    </message>
    <message>
        <source>Sublot</source>
        <translation>Teillos</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Machine</source>
        <translation>Maschine</translation>
    </message>
    <message>
        <source>Tester</source>
        <translation>Tester</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Revision</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Bediener</translation>
    </message>
    <message>
        <source>Facility</source>
        <translation>Werk</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>Begonnen</translation>
    </message>
    <message>
        <source>STDF V4, %1%2; records: %3</source>
        <translation>STDF V4, %1%2; Datensätze: %3</translation>
    </message>
    <message>
        <source>big-endian</source>
        <translation>Big-Endian</translation>
    </message>
    <message>
        <source>little-endian</source>
        <translation>Little-Endian</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Damaged at offset %1: %2</source>
        <translation>Beschädigt ab Byte %1: %2</translation>
    </message>
    <message>
        <source>MRR: there is no PCR before it</source>
        <translation>MRR: davor steht kein PCR</translation>
    </message>
    <message numerus="yes">
        <source>%1: the count of bin %2 is %3, only %n parts are in it</source>
        <translation>
            <numerusform>%1: für Bin %2 sind %3 gezählt, darin ist nur %n Teil</numerusform>
            <numerusform>%1: für Bin %2 sind %3 gezählt, darin sind nur %n Teile</numerusform>
        </translation>
    </message>
    <message>
        <source>FAR: CPU_TYPE is %1, but the records are big-endian</source>
        <translation>FAR: CPU_TYPE ist %1, aber die Datensätze beginnen mit dem höchsten Byte (big-endian)</translation>
    </message>
    <message>
        <source>FAR: CPU_TYPE is %1, but the records are little-endian</source>
        <translation>FAR: CPU_TYPE ist %1, aber die Datensätze beginnen mit dem niedrigsten Byte (little-endian)</translation>
    </message>
    <message>
        <source>the record ends before the field %1</source>
        <translation>der Datensatz endet vor dem Feld %1</translation>
    </message>
    <message>
        <source>type %1, subtype %2</source>
        <translation>Typ %1, Untertyp %2</translation>
    </message>
    <message>
        <source>the file ends inside a record: %1, %2 of %3 bytes</source>
        <translation>die Datei endet in einem Datensatz: %1, %2 von %3 Bytes</translation>
    </message>
    <message>
        <source>so many sites and bins that the counts of bins are not compared</source>
        <translation>so viele Plätze und Bins, dass die Anzahlen der Bins nicht verglichen werden</translation>
    </message>
    <message>
        <source>the rest of the file is zero bytes, as a power loss leaves them; the next part that is added goes over them</source>
        <translation>der Rest der Datei sind Nullbytes, wie sie ein Stromausfall hinterlässt; der nächste angefügte Teil überschreibt sie</translation>
    </message>
    <message numerus="yes">
        <source>%n records have texts beyond ASCII, first %1: they are read as Latin-1, and some other readers give up on them</source>
        <translation>
            <numerusform>%n Datensatz hat Texte jenseits von ASCII, zuerst %1: gelesen wird er als Latin-1, und manche anderen Leser geben daran auf</numerusform>
            <numerusform>%n Datensätze haben Texte jenseits von ASCII, zuerst %1: gelesen werden sie als Latin-1, und manche anderen Leser geben daran auf</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and more: %n remarks in all</source>
        <translation>
            <numerusform>und mehr: insgesamt %n Hinweis</numerusform>
            <numerusform>und mehr: insgesamt %n Hinweise</numerusform>
        </translation>
    </message>
    <message>
        <source>and %1 records of more tests</source>
        <translation>und %1 Sätze weiterer Tests</translation>
    </message>
    <message>
        <source>and %1 more bins and counts</source>
        <translation>und %1 weitere Bins und Anzahlen</translation>
    </message>
    <message>
        <source>the compressed data is damaged: %1</source>
        <translation>die komprimierten Daten sind beschädigt: %1</translation>
    </message>
</context>
<context>
    <name>zyn</name>
    <message>
        <source>cannot be read as INI: %1</source>
        <translation>ist nicht als INI lesbar: %1</translation>
    </message>
    <message numerus="yes">
        <source>binning definition, %n bins</source>
        <translation>
            <numerusform>Bin-Definition, %n Bin</numerusform>
            <numerusform>Bin-Definition, %n Bins</numerusform>
        </translation>
    </message>
    <message>
        <source>hard</source>
        <translation>hart</translation>
    </message>
    <message>
        <source>soft</source>
        <translation>weich</translation>
    </message>
    <message>
        <source>note:</source>
        <translation>Hinweis:</translation>
    </message>
    <message>
        <source>%1: good</source>
        <translation>%1: gut</translation>
    </message>
    <message>
        <source>Check whether files are well formed, known and complete</source>
        <translation>Prüft, ob Dateien wohlgeformt, bekannt und vollständig sind</translation>
    </message>
    <message>
        <source>Files, folders, or - for standard input</source>
        <translation>Dateien, Ordner oder - für die Standardeingabe</translation>
    </message>
    <message>
        <source>For programs: one JSON object a finding and line</source>
        <translation>Für Programme: je Befund eine Zeile mit einem JSON-Objekt</translation>
    </message>
    <message>
        <source>Prints one finding a line as FILE:LINE:COLUMN: text (STDF: FILE:offset N: text) and
exits with 1 if any is an error.</source>
        <translation>Gibt je Zeile einen Befund aus, als DATEI:ZEILE:SPALTE: Text (STDF: DATEI:offset N: Text), und
endet mit 1, wenn einer davon ein Fehler ist.</translation>
    </message>
    <message>
        <source>one place for the output is needed</source>
        <translation>genau ein Ziel für die Ausgabe ist nötig</translation>
    </message>
    <message>
        <source>give -o FILE or -d FOLDER</source>
        <translation>-o DATEI oder -d ORDNER angeben</translation>
    </message>
    <message>
        <source>the format is not clear</source>
        <translation>das Format ist nicht klar</translation>
    </message>
    <message>
        <source>add -f FORMAT; zyn formats lists them</source>
        <translation>-f FORMAT angeben; zyn formats zeigt alle</translation>
    </message>
    <message>
        <source>there is no format &apos;%1&apos;</source>
        <translation>es gibt kein Format »%1«</translation>
    </message>
    <message>
        <source>zyn formats lists them</source>
        <translation>zyn formats zeigt alle</translation>
    </message>
    <message>
        <source>several reports do not fit into one %1 file</source>
        <translation>mehrere Berichte passen nicht in eine einzige %1-Datei</translation>
    </message>
    <message>
        <source>give -d FOLDER instead of -o FILE</source>
        <translation>-d ORDNER statt -o DATEI angeben</translation>
    </message>
    <message>
        <source>would be made from both %1 and %2</source>
        <translation>würde sowohl aus %1 als auch aus %2 entstehen</translation>
    </message>
    <message>
        <source>convert them into different folders</source>
        <translation>in verschiedene Ordner umwandeln</translation>
    </message>
    <message>
        <source>is an input as well</source>
        <translation>ist zugleich eine Eingabe</translation>
    </message>
    <message>
        <source>choose another name for the output</source>
        <translation>einen anderen Namen für die Ausgabe wählen</translation>
    </message>
    <message>
        <source>this build cannot write %1</source>
        <translation>dieses Programm ist ohne %1 gebaut</translation>
    </message>
    <message>
        <source>the folder cannot be created</source>
        <translation>der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>choose another one</source>
        <translation>einen anderen wählen</translation>
    </message>
    <message numerus="yes">
        <source>converted %1 of %n reports to %2</source>
        <translation>
            <numerusform>%1 von %n Bericht in %2 umgewandelt</numerusform>
            <numerusform>%1 von %n Berichten in %2 umgewandelt</numerusform>
        </translation>
    </message>
    <message>
        <source>Convert XML reports (.zyr) into other formats</source>
        <translation>Wandelt XML-Berichte (.zyr) in andere Formate um</translation>
    </message>
    <message>
        <source>Folder to write into, one file for each report</source>
        <translation>Ausgabeordner, eine Datei je Bericht</translation>
    </message>
    <message>
        <source>Format (see zyn formats)</source>
        <translation>Format (siehe zyn formats)</translation>
    </message>
    <message>
        <source>Logo for HTML and PDF</source>
        <translation>Logo für HTML und PDF</translation>
    </message>
    <message>
        <source>Style sheet that XML reports refer to</source>
        <translation>Stylesheet, auf das XML-Berichte verweisen</translation>
    </message>
    <message>
        <source>Also what is marked as not to be reported</source>
        <translation>Auch, was nicht in den Bericht soll</translation>
    </message>
    <message>
        <source>Replace existing files</source>
        <translation>Vorhandene Dateien ersetzen</translation>
    </message>
    <message>
        <source>adds a part for each report</source>
        <translation>fügt je Bericht ein Teil an</translation>
    </message>
    <message>
        <source>XML report</source>
        <translation>XML-Bericht</translation>
    </message>
    <message>
        <source>STDF file</source>
        <translation>STDF-Datei</translation>
    </message>
    <message>
        <source>test plan</source>
        <translation>Testplan</translation>
    </message>
    <message>
        <source>binning definition</source>
        <translation>Bin-Definition</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>is of no known kind</source>
        <translation>ist von keiner bekannten Art</translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation>bekannt sind: %1</translation>
    </message>
    <message>
        <source>programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Extension</source>
        <translation>Endung</translation>
    </message>
    <message>
        <source>Also named</source>
        <translation>Auch genannt</translation>
    </message>
    <message>
        <source>Good for</source>
        <translation>Gut für</translation>
    </message>
    <message>
        <source>List the report formats</source>
        <translation>Zeigt die Berichtsformate</translation>
    </message>
    <message>
        <source>For programs</source>
        <translation>Für Programme</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>check the name</source>
        <translation>den Namen prüfen</translation>
    </message>
    <message>
        <source>is a device</source>
        <translation>ist ein Gerät</translation>
    </message>
    <message>
        <source>name a file, a folder or a pipe</source>
        <translation>eine Datei, einen Ordner oder eine Pipe angeben</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>check its permissions</source>
        <translation>die Zugriffsrechte prüfen</translation>
    </message>
    <message>
        <source>cannot be read to its end</source>
        <translation>kann nicht bis zum Ende gelesen werden</translation>
    </message>
    <message>
        <source>holds no *.%1 file</source>
        <translation>enthält keine Datei *.%1</translation>
    </message>
    <message>
        <source>name the files themselves if they are called otherwise</source>
        <translation>die Dateien selbst angeben, wenn sie anders heißen</translation>
    </message>
    <message>
        <source>no part can be added: %1</source>
        <translation>es kann kein Teil angefügt werden: %1</translation>
    </message>
    <message>
        <source>check the name and the permissions of file and folder</source>
        <translation>den Namen und die Zugriffsrechte von Datei und Ordner prüfen</translation>
    </message>
    <message>
        <source>could not be added to %1 completely; the lot is as it was</source>
        <translation>konnte nicht vollständig an %1 angefügt werden; das Los ist wie zuvor</translation>
    </message>
    <message>
        <source>could not be added to %1 completely; the lot could not be put back</source>
        <translation>konnte nicht vollständig an %1 angefügt werden; das Los ließ sich nicht wiederherstellen</translation>
    </message>
    <message>
        <source>look at the disk&apos;s space, quota and file size limit</source>
        <translation>Speicherplatz, Kontingent und Größengrenze für Dateien prüfen</translation>
    </message>
    <message>
        <source>%1 is of another lot, product type or machine than %2: its part is in %3</source>
        <translation>%1 ist von einem anderen Los, Produkttyp oder einer anderen Maschine als %2: sein Teil steht in %3</translation>
    </message>
    <message numerus="yes">
        <source>%1 holds %n parts</source>
        <translation>
            <numerusform>%1 enthält %n Teil</numerusform>
            <numerusform>%1 enthält %n Teile</numerusform>
        </translation>
    </message>
    <message>
        <source>is damaged at offset %1: %2</source>
        <translation>ist ab Byte %1 beschädigt: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n components are in some of %1 runs only, %2 in %3; -v lists them</source>
        <translation>
            <numerusform>%n Komponente ist nur in einem Teil der %1 Läufe, %2 in %3; -v zeigt sie</numerusform>
            <numerusform>%n Komponenten sind nur in einem Teil der %1 Läufe, %2 in %3; -v zeigt alle</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is in %2 of %3 runs only</source>
        <translation>%1 ist nur in %2 von %3 Läufen</translation>
    </message>
    <message>
        <source>%1 % (%2 of %3)</source>
        <translation>%1 % (%2 von %3)</translation>
    </message>
    <message>
        <source>Yield</source>
        <translation>Ausbeute</translation>
    </message>
    <message>
        <source>First-pass yield</source>
        <translation>Ausbeute im ersten Durchgang</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>not everything could be written</source>
        <translation>es konnte nicht alles geschrieben werden</translation>
    </message>
    <message>
        <source>the disk may be full</source>
        <translation>vielleicht ist der Datenträger voll</translation>
    </message>
    <message>
        <source>Writes, converts, shows and checks results of production tests.</source>
        <translation>Schreibt, wandelt um, zeigt und prüft Ergebnisse von Produktionstests.</translation>
    </message>
    <message>
        <source>Say nothing but what went wrong</source>
        <translation>Nur melden, was schiefging</translation>
    </message>
    <message>
        <source>Say what is being done</source>
        <translation>Melden, was getan wird</translation>
    </message>
    <message>
        <source>Print the version and exit</source>
        <translation>Version ausgeben und beenden</translation>
    </message>
    <message>
        <source>zyn COMMAND --help explains a command with examples.
Exit codes: 0 good, 1 something failed (the rest was done), 2 wrong usage.</source>
        <translation>zyn BEFEHL --help erklärt einen Befehl mit Beispielen.
Rückgabewerte: 0 gut, 1 etwas ist gescheitert (der Rest ist getan), 2 falscher Aufruf.</translation>
    </message>
    <message>
        <source>%1 of %2  %3/s  %4 left</source>
        <translation>%1 von %2  %3/s  noch %4</translation>
    </message>
    <message>
        <source>&apos;%1&apos; passed although &apos;%2&apos; failed</source>
        <translation>»%1« hat bestanden, obwohl »%2« nicht bestanden hat</translation>
    </message>
    <message>
        <source>&apos;%1&apos; passed although its value is %2 (limits %3)</source>
        <translation>»%1« hat bestanden, obwohl der Wert %2 ist (Grenzen %3)</translation>
    </message>
    <message>
        <source>&apos;%1&apos; failed although its value is %2 (limits %3)</source>
        <translation>»%1« hat nicht bestanden, obwohl der Wert %2 ist (Grenzen %3)</translation>
    </message>
    <message>
        <source>is no complete report: %1</source>
        <translation>ist kein vollständiger Bericht: %1</translation>
    </message>
    <message>
        <source>zyn check lists everything that is wrong with it</source>
        <translation>zyn check zeigt alles, was daran falsch ist</translation>
    </message>
    <message>
        <source>not %1</source>
        <translation>nicht %1</translation>
    </message>
    <message>
        <source>unknown unit</source>
        <translation>unbekannter Prüfling</translation>
    </message>
    <message>
        <source>Run %1</source>
        <translation>Lauf %1</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>lot %1</source>
        <translation>Los %1</translation>
    </message>
    <message>
        <source>permission denied</source>
        <translation>keine Berechtigung</translation>
    </message>
    <message>
        <source>the file system is read-only</source>
        <translation>das Dateisystem ist schreibgeschützt</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the disk quota is used up</source>
        <translation>das Kontingent ist aufgebraucht</translation>
    </message>
    <message>
        <source>the file is larger than allowed</source>
        <translation>die Datei ist größer als erlaubt</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>name a file, or a folder with -d</source>
        <translation>eine Datei angeben, oder einen Ordner mit -d</translation>
    </message>
    <message>
        <source>is a device or a pipe, where no file can be put</source>
        <translation>ist ein Gerät oder eine Pipe, wo keine Datei stehen kann</translation>
    </message>
    <message>
        <source>name a file</source>
        <translation>eine Datei angeben</translation>
    </message>
    <message>
        <source>is a link to nowhere</source>
        <translation>ist ein Verweis ins Leere</translation>
    </message>
    <message>
        <source>remove the link</source>
        <translation>den Verweis entfernen</translation>
    </message>
    <message>
        <source>already exists</source>
        <translation>existiert schon</translation>
    </message>
    <message>
        <source>add --force to replace it</source>
        <translation>mit --force ersetzen</translation>
    </message>
    <message>
        <source>its folder does not exist</source>
        <translation>der Ordner dafür existiert nicht</translation>
    </message>
    <message>
        <source>create it first</source>
        <translation>erst den Ordner anlegen</translation>
    </message>
    <message>
        <source>its folder cannot be written to</source>
        <translation>in den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>choose another folder or change its permissions</source>
        <translation>einen anderen Ordner wählen oder die Zugriffsrechte ändern</translation>
    </message>
    <message>
        <source>could not be written: %1</source>
        <translation>konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>choose another folder</source>
        <translation>einen anderen Ordner wählen</translation>
    </message>
    <message>
        <source>free some space and try again</source>
        <translation>Platz schaffen und noch einmal versuchen</translation>
    </message>
    <message>
        <source>could not be written completely, so nothing was kept</source>
        <translation>konnte nicht vollständig geschrieben werden, deshalb blieb nichts davon</translation>
    </message>
    <message>
        <source>Show what a file holds</source>
        <translation>Zeigt, was eine Datei enthält</translation>
    </message>
    <message>
        <source>Only what failed</source>
        <translation>Nur, was nicht bestanden hat</translation>
    </message>
    <message>
        <source>For programs: one JSON object a line</source>
        <translation>Für Programme: je Zeile ein JSON-Objekt</translation>
    </message>
    <message>
        <source>Colours are used on a terminal, unless NO_COLOR is set.</source>
        <translation>Farben gibt es auf einem Terminal, wenn NO_COLOR nicht gesetzt ist.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n panels of %2, test plan and bins</source>
        <translation>
            <numerusform>%1: %n Nutzen zu je %2, Testplan und Bins</numerusform>
            <numerusform>%1: %n Nutzen zu je %2, Testplan und Bins</numerusform>
        </translation>
    </message>
    <message>
        <source>Let a simulated line test a lot: reports, test plan and bins to try things with</source>
        <translation>Lässt eine simulierte Linie ein Los testen: Berichte, Testplan und Bins zum Ausprobieren</translation>
    </message>
    <message>
        <source>Folder to write into</source>
        <translation>Ausgabeordner</translation>
    </message>
    <message>
        <source>Panels to test</source>
        <translation>Anzahl der Nutzen</translation>
    </message>
    <message>
        <source>Boards on a panel; 1: single boards</source>
        <translation>Baugruppen je Nutzen; 1: einzelne Baugruppen</translation>
    </message>
    <message>
        <source>The same seed gives the same files</source>
        <translation>Gleicher Startwert, gleiche Dateien</translation>
    </message>
    <message>
        <source>Further steps of ten measurements each</source>
        <translation>Weitere Schritte mit je zehn Messungen</translation>
    </message>
    <message>
        <source>there are no statistics as %1</source>
        <translation>Statistik als %1 gibt es nicht</translation>
    </message>
    <message numerus="yes">
        <source>and %n remarks more; -v shows all</source>
        <translation>
            <numerusform>und noch %n Hinweis; -v zeigt alle</numerusform>
            <numerusform>und noch %n Hinweise; -v zeigt alle</numerusform>
        </translation>
    </message>
    <message>
        <source>no report could be read</source>
        <translation>kein Bericht konnte gelesen werden</translation>
    </message>
    <message>
        <source>nothing is written</source>
        <translation>es wird nichts geschrieben</translation>
    </message>
    <message>
        <source>Summarise the reports of a lot</source>
        <translation>Fasst die Berichte eines Loses zusammen</translation>
    </message>
    <message>
        <source>Values with the prefixes of their units</source>
        <translation>Werte mit den Vorsätzen ihrer Einheiten</translation>
    </message>
    <message>
        <source>Replace an existing file</source>
        <translation>Vorhandene Datei ersetzen</translation>
    </message>
    <message>
        <source>%1 (behind the end of the plan)</source>
        <translation>%1 (hinter dem Ende des Plans)</translation>
    </message>
    <message>
        <source>element &apos;%1&apos; is unknown here and is skipped</source>
        <translation>Element »%1« ist hier unbekannt und wird übersprungen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has no ident: it belongs to no component</source>
        <translation>»%1« hat keine Kennung: es gehört zu keiner Komponente</translation>
    </message>
    <message>
        <source>there is a &apos;%1&apos; for ident &apos;%2&apos; before; the last one counts</source>
        <translation>für Kennung »%2« gibt es davor schon ein »%1«; das letzte zählt</translation>
    </message>
    <message>
        <source>attribute &apos;%1&apos;: &apos;%2&apos; is no %3 and counts as 0</source>
        <translation>Attribut »%1«: »%2« ist kein %3 und zählt als 0</translation>
    </message>
    <message>
        <source>validation</source>
        <translation>Validierung</translation>
    </message>
    <message>
        <source>attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>switches</source>
        <translation>Schalter</translation>
    </message>
    <message numerus="yes">
        <source>test plan, %n components</source>
        <translation>
            <numerusform>Testplan, %n Komponente</numerusform>
            <numerusform>Testplan, %n Komponenten</numerusform>
        </translation>
    </message>
    <message>
        <source>a command is required</source>
        <translation>ein Befehl ist nötig</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>%1 ist nötig</translation>
    </message>
    <message>
        <source>not expected: %1</source>
        <translation>nicht erwartet: %1</translation>
    </message>
    <message>
        <source>%1 has no value</source>
        <translation>%1 hat keinen Wert</translation>
    </message>
    <message>
        <source>%1 is given more than once</source>
        <translation>%1 ist mehrfach angegeben</translation>
    </message>
    <message>
        <source>%1: &apos;%2&apos; is no such number</source>
        <translation>%1: »%2« ist keine passende Zahl</translation>
    </message>
    <message>
        <source>%1: %2 is not within %3</source>
        <translation>%1: %2 liegt nicht in %3</translation>
    </message>
    <message>
        <source>%1: there is no file %2</source>
        <translation>%1: die Datei %2 gibt es nicht</translation>
    </message>
    <message>
        <source>%1: %2 is a folder</source>
        <translation>%1: %2 ist ein Ordner</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>COMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>(required)</source>
        <translation>(Pflicht)</translation>
    </message>
    <message>
        <source>Print this help and exit</source>
        <translation>Diese Hilfe ausgeben und beenden</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation>siehe %1 --help</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>DATEI</translation>
    </message>
    <message>
        <source>FOLDER</source>
        <translation>ORDNER</translation>
    </message>
    <message>
        <source>FORMAT</source>
        <translation>FORMAT</translation>
    </message>
    <message>
        <source>there is no command &apos;%1&apos;</source>
        <translation>es gibt keinen Befehl »%1«</translation>
    </message>
    <message>
        <source>For programs: one JSON object an input and line</source>
        <translation>Für Programme: je Eingabe eine Zeile mit einem JSON-Objekt</translation>
    </message>
    <message>
        <source>look at the disk&apos;s space, quota and file size limit, and at the permissions of the folder</source>
        <translation>Platz, Kontingent und Größengrenze der Platte und Rechte des Ordners prüfen</translation>
    </message>
    <message>
        <source>what can be read was shown; zyn check finds all that is wrong</source>
        <translation>was lesbar ist, wurde gezeigt; zyn check findet alles, was falsch ist</translation>
    </message>
    <message>
        <source>&apos;%1&apos; names no archive</source>
        <translation>&apos;%1&apos; nennt kein Archiv</translation>
    </message>
    <message>
        <source>name a file that ends in .zya, or postgresql://USER@HOST/DATABASE</source>
        <translation>eine Datei nennen, die auf .zya endet, oder postgresql://USER@HOST/DATABASE</translation>
    </message>
    <message>
        <source>%1: a new archive</source>
        <translation>%1: ein neues Archiv</translation>
    </message>
    <message>
        <source>runs: %1 added, %2 there already, %3 revised; inputs that failed: %4</source>
        <translation>Läufe: %1 aufgenommen, %2 schon da, %3 ersetzt; fehlgeschlagene Eingaben: %4</translation>
    </message>
    <message>
        <source>%1 archive, version %2</source>
        <translation>%1-Archiv, Version %2</translation>
    </message>
    <message>
        <source>runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>%1, and %2 that were replaced</source>
        <translation>%1, und %2, die ersetzt wurden</translation>
    </message>
    <message>
        <source>units</source>
        <translation>Prüflinge</translation>
    </message>
    <message>
        <source>%1 of %2 products in %3 lots</source>
        <translation>%1 von %2 Produkten in %3 Losen</translation>
    </message>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>%1: is up to date</source>
        <translation>%1: ist auf dem Stand</translation>
    </message>
    <message>
        <source>File that ends in .zya, or postgresql://USER@HOST:PORT/DATABASE</source>
        <translation>Datei, die auf .zya endet, oder postgresql://USER@HOST:PORT/DATABASE</translation>
    </message>
    <message>
        <source>Keep results in a database that answers questions</source>
        <translation>Ergebnisse in einer Datenbank halten, die Fragen beantwortet</translation>
    </message>
    <message>
        <source>Make a new, empty archive</source>
        <translation>Ein neues, leeres Archiv anlegen</translation>
    </message>
    <message>
        <source>The database of a server must be there already, and be empty. A password is taken
from ~/.pgpass.</source>
        <translation>Die Datenbank eines Servers muss es schon geben, und sie muss leer sein. Ein Passwort kommt
aus ~/.pgpass.</translation>
    </message>
    <message>
        <source>Put the runs of reports into an archive</source>
        <translation>Die Läufe von Berichten in ein Archiv aufnehmen</translation>
    </message>
    <message>
        <source>What is there already is not added again. Of a run that is there with another content
the later one counts; the other is kept.</source>
        <translation>Was schon da ist, wird nicht noch einmal aufgenommen. Von einem Lauf, der mit anderem Inhalt da ist,
gilt der spätere; der andere bleibt erhalten.</translation>
    </message>
    <message>
        <source>Say what an archive holds</source>
        <translation>Sagen, was ein Archiv enthält</translation>
    </message>
    <message>
        <source>For programs: one JSON object</source>
        <translation>Für Programme: ein JSON-Objekt</translation>
    </message>
    <message>
        <source>Bring the tables of an older archive up to date</source>
        <translation>Die Tabellen eines älteren Archivs auf den Stand bringen</translation>
    </message>
    <message>
        <source>files are written as they are, not compressed</source>
        <translation>Dateien werden so geschrieben, wie sie sind, nicht gepackt</translation>
    </message>
    <message>
        <source>leave .gz away, and compress the file afterwards</source>
        <translation>.gz weglassen und die Datei danach packen</translation>
    </message>
    <message>
        <source>would take too long as PDF: %1</source>
        <translation>würde als PDF zu lange dauern: %1</translation>
    </message>
    <message>
        <source>convert it to HTML</source>
        <translation>in HTML umwandeln</translation>
    </message>
    <message>
        <source>STDF: add also parts that stand in the lot already</source>
        <translation>STDF: auch Teile anfügen, die schon im Los stehen</translation>
    </message>
    <message>
        <source>its name is no UTF-8</source>
        <translation>sein Name ist kein UTF-8</translation>
    </message>
    <message>
        <source>rename it, or name it on the command line</source>
        <translation>umbenennen oder auf der Befehlszeile angeben</translation>
    </message>
    <message>
        <source>is a device or a pipe</source>
        <translation>ist ein Gerät oder eine Pipe</translation>
    </message>
    <message>
        <source>name it on the command line</source>
        <translation>auf der Befehlszeile angeben</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n runs are copies of runs read before; they count once</source>
        <translation>
            <numerusform>%1: %n Lauf ist eine Kopie eines früher gelesenen und zählt einmal</numerusform>
            <numerusform>%1: %n Läufe sind Kopien früher gelesener und zählen einmal</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n runs differ from what was read before, and replace it</source>
        <translation>
            <numerusform>%1: %n Lauf weicht vom früher Gelesenen ab und ersetzt es</numerusform>
            <numerusform>%1: %n Läufe weichen vom früher Gelesenen ab und ersetzen es</numerusform>
        </translation>
    </message>
    <message>
        <source>the name of the lot, product type or machine goes beyond ASCII or is very long, so that %2 is not recognised as the lot of %1: its part is in %3</source>
        <translation>der Name von Los, Produkttyp oder Maschine geht über ASCII hinaus oder ist sehr lang, daher wird %2 nicht als Los von %1 erkannt: sein Teil steht in %3</translation>
    </message>
    <message>
        <source>%2 is cut off or damaged before it says which lot it is: the part of %1 is in %3</source>
        <translation>%2 ist abgeschnitten oder beschädigt, bevor es sein Los nennt: der Teil von %1 steht in %3</translation>
    </message>
    <message numerus="yes">
        <source>%n units gave no part, first in %1: %2</source>
        <translation>
            <numerusform>%n Prüfling ergab keinen Teil, in %1: %2</numerusform>
            <numerusform>%n Prüflinge ergaben keinen Teil, zuerst in %1: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2 goes beyond ASCII; STDF has it as Latin-1, and some readers give up on it</source>
        <translation>%1: %2 geht über ASCII hinaus; STDF hat es als Latin-1, und manche Leser geben daran auf</translation>
    </message>
    <message numerus="yes">
        <source>%n parts stand there already and are left out; --again adds them all the same</source>
        <translation>
            <numerusform>%n Teil steht dort schon und wird ausgelassen; mit --again wird er trotzdem angefügt</numerusform>
            <numerusform>%n Teile stehen dort schon und werden ausgelassen; mit --again werden sie trotzdem angefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>no test program ran</source>
        <translation>es lief kein Programm</translation>
    </message>
    <message>
        <source>no measurement has a result</source>
        <translation>keine Messung hat ein Ergebnis</translation>
    </message>
    <message>
        <source>no measurement is meant for reports (--all adds them)</source>
        <translation>keine Messung ist für Berichte vorgesehen (mit --all kommen sie hinein)</translation>
    </message>
    <message>
        <source>is compressed, so no part can be added</source>
        <translation>ist gepackt, daher kann kein Teil angefügt werden</translation>
    </message>
    <message>
        <source>unpack it first (gunzip), or choose another name</source>
        <translation>zuerst entpacken (gunzip) oder einen anderen Namen wählen</translation>
    </message>
    <message>
        <source>is no STDF file, so no part can be added</source>
        <translation>ist keine STDF-Datei, daher kann kein Teil angefügt werden</translation>
    </message>
    <message>
        <source>choose another name</source>
        <translation>einen anderen Namen wählen</translation>
    </message>
    <message>
        <source>there is not enough memory to decompress it</source>
        <translation>der Speicher reicht nicht, um sie zu entpacken</translation>
    </message>
    <message>
        <source>it becomes more than %1 times larger when it is decompressed</source>
        <translation>sie wird beim Entpacken mehr als %1-mal größer</translation>
    </message>
    <message>
        <source>verdicts and values could not be compared: the components that were read are not those of the file</source>
        <translation>Urteile und Werte konnten nicht verglichen werden: die gelesenen Komponenten sind nicht die der Datei</translation>
    </message>
    <message>
        <source>is no XML report but another kind of file: %1</source>
        <translation>ist kein XML-Bericht, sondern eine andere Art Datei: %1</translation>
    </message>
    <message>
        <source>give XML reports (.zyr); zyn show and zyn check read this one</source>
        <translation>XML-Berichte (.zyr) angeben; zyn show und zyn check lesen diese</translation>
    </message>
    <message>
        <source>failed first, passed later</source>
        <translation>zuerst nicht bestanden, später bestanden</translation>
    </message>
    <message>
        <source>it states %1</source>
        <translation>sie nennt %1</translation>
    </message>
    <message>
        <source>column %1: %2</source>
        <translation>Spalte %1: %2</translation>
    </message>
    <message>
        <source>an archive cannot be asked together with other inputs</source>
        <translation>ein Archiv lässt sich nicht zusammen mit anderen Eingaben befragen</translation>
    </message>
    <message>
        <source>put them into it with zyn archive add</source>
        <translation>sie mit zyn archive add aufnehmen</translation>
    </message>
    <message>
        <source>there is no run in what was read</source>
        <translation>im Gelesenen ist kein Lauf</translation>
    </message>
    <message>
        <source>name reports of units</source>
        <translation>Berichte von Prüflingen nennen</translation>
    </message>
    <message>
        <source>somebody removed or replaced its temporary file while it was written</source>
        <translation>jemand hat die vorläufige Datei während des Schreibens entfernt oder ersetzt</translation>
    </message>
    <message>
        <source>try again, or choose a folder that only you can write to</source>
        <translation>noch einmal versuchen oder einen Ordner wählen, in den nur Sie schreiben können</translation>
    </message>
    <message>
        <source>the file system does not tell its free space; look at the disk&apos;s space, quota and file size limit</source>
        <translation>das Dateisystem nennt seinen freien Platz nicht; Platz, Kontingent und Größengrenze der Platte prüfen</translation>
    </message>
    <message>
        <source>Failed first</source>
        <translation>Zuerst fehlerhaft</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Ident</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Tell what failed, and how often</source>
        <translation>Sagen, was fehlerhaft war und wie oft</translation>
    </message>
    <message>
        <source>Every measurement that failed, not only what failed first in a run</source>
        <translation>Jede fehlerhafte Messung, nicht nur die erste eines Laufs</translation>
    </message>
    <message>
        <source>Counts runs. What failed first is the first measurement that failed in the first step that
failed; shares are of all first failures.</source>
        <translation>Zählt Läufe. Zuerst fehlerhaft ist die erste fehlerhafte Messung im ersten fehlerhaften Schritt;
Anteile beziehen sich auf alle ersten Fehler.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Lot</source>
        <translation>Los</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Lauf</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>no run of unit &apos;%1&apos; is among those that were chosen</source>
        <translation>kein Lauf des Prüflings &apos;%1&apos; ist unter den gewählten</translation>
    </message>
    <message>
        <source>choose more of them</source>
        <translation>mehr davon wählen</translation>
    </message>
    <message>
        <source>there is no unit &apos;%1&apos;</source>
        <translation>es gibt keinen Prüfling &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Tell all that happened to a unit</source>
        <translation>Alles erzählen, was einem Prüfling geschah</translation>
    </message>
    <message>
        <source>Serial of a unit or panel; its ident where it has none</source>
        <translation>Seriennummer eines Prüflings oder Nutzens; seine Kennung, wo er keine hat</translation>
    </message>
    <message>
        <source>there is no measurement &apos;%1&apos;</source>
        <translation>es gibt keine Messung &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Tell mean, sigma, CPK and drift of measurements</source>
        <translation>Mittelwert, Sigma, CPK und Drift von Messungen nennen</translation>
    </message>
    <message>
        <source>Name, ident or path of measurements that are shown with histogram and limits; may be given several times</source>
        <translation>Name, Kennung oder Pfad von Messungen, die mit Histogramm und Grenzen gezeigt werden; mehrmals möglich</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>With every value</source>
        <translation>Mit jedem Wert</translation>
    </message>
    <message>
        <source>%1: the format is not clear</source>
        <translation>%1: das Format ist unklar</translation>
    </message>
    <message>
        <source>%1: open it in a browser</source>
        <translation>%1: im Browser öffnen</translation>
    </message>
    <message>
        <source>Make a page about lots, to look at, print and mail</source>
        <translation>Eine Seite über Lose machen, zum Ansehen, Drucken und Verschicken</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>First run</source>
        <translation>Erster Lauf</translation>
    </message>
    <message>
        <source>Last run</source>
        <translation>Letzter Lauf</translation>
    </message>
    <message>
        <source>List units with the verdicts of their first and last run</source>
        <translation>Prüflinge mit den Ergebnissen ihres ersten und letzten Laufs aufführen</translation>
    </message>
    <message>
        <source>Only units whose last run did not pass</source>
        <translation>Nur Prüflinge, deren letzter Lauf nicht bestanden ist</translation>
    </message>
    <message>
        <source>Only units with several runs</source>
        <translation>Nur Prüflinge mit mehreren Läufen</translation>
    </message>
    <message>
        <source>--by: there are no groups by &apos;%1&apos;</source>
        <translation>--by: es gibt keine Gruppen nach &apos;%1&apos;</translation>
    </message>
    <message>
        <source>choose of %1</source>
        <translation>aus %1 wählen</translation>
    </message>
    <message>
        <source>Not passed</source>
        <translation>Nicht bestanden</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Störungen</translation>
    </message>
    <message>
        <source>Not tested</source>
        <translation>Nicht geprüft</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Tell how many units passed, and how many at once</source>
        <translation>Sagen, wie viele Prüflinge bestanden, und wie viele auf Anhieb</translation>
    </message>
    <message>
        <source>A line for each %1; several, also separated by commas</source>
        <translation>Eine Zeile für jedes %1; mehrere, auch durch Kommas getrennt</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GRUPPE</translation>
    </message>
    <message>
        <source>A unit passed when its last run did, and at once when its first run did. Times are in their
order, other groups with the worst on top: 1 of 2 is not worse than 80 of 200.</source>
        <translation>Ein Prüfling bestand, wenn sein letzter Lauf bestand, und auf Anhieb, wenn sein erster bestand. Zeiten
stehen der Reihe nach, andere Gruppen mit der schlechtesten oben: 1 von 2 ist nicht schlechter als 80 von 200.</translation>
    </message>
    <message>
        <source>-o - and --json both want standard output</source>
        <translation>-o - und --json wollen beide die Standardausgabe</translation>
    </message>
    <message>
        <source>leave one of them away</source>
        <translation>eines davon weglassen</translation>
    </message>
    <message>
        <source>File to write; its extension chooses the format; - for standard output</source>
        <translation>Zu schreibende Datei; ihre Endung wählt das Format; - für die Standardausgabe</translation>
    </message>
    <message>
        <source>Explain the tool or a command</source>
        <translation>Das Werkzeug oder einen Befehl erklären</translation>
    </message>
    <message>
        <source>The command to explain</source>
        <translation>Der Befehl, der erklärt werden soll</translation>
    </message>
    <message>
        <source>the limits of %1 changed within the lot; the file&apos;s figures are by the newest</source>
        <translation>die Grenzen von %1 änderten sich im Los; die Zahlen der Datei gelten für die neuesten</translation>
    </message>
    <message numerus="yes">
        <source>program &apos;%1&apos; version &apos;%2&apos; in %n runs</source>
        <translation>
            <numerusform>Programm &apos;%1&apos; Version &apos;%2&apos; in %n Lauf</numerusform>
            <numerusform>Programm &apos;%1&apos; Version &apos;%2&apos; in %n Läufen</numerusform>
        </translation>
    </message>
    <message>
        <source>Smallest CPK: of all values, of those that passed</source>
        <translation>Kleinster CPK: über alle Werte, über die bestandenen</translation>
    </message>
    <message>
        <source>Without a program</source>
        <translation>Ohne Programm</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>Programm %1</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Wafer</source>
        <translation>Wafer</translation>
    </message>
    <message>
        <source>Bin</source>
        <translation>Bin</translation>
    </message>
    <message>
        <source>Hour</source>
        <translation>Stunde</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>unit %1 at %2</source>
        <translation>Prüfling %1 um %2</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, failed %2</source>
        <translation>%1, fehlerhaft %2</translation>
    </message>
    <message>
        <source>, not a number or infinite %1</source>
        <translation>, keine Zahl oder unendlich %1</translation>
    </message>
    <message>
        <source>%1, of those that passed %2</source>
        <translation>%1, der bestandenen %2</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>CPK</source>
        <translation>CPK</translation>
    </message>
    <message>
        <source>, sigma %1</source>
        <translation>, Sigma %1</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Drift</source>
        <translation>Drift</translation>
    </message>
    <message>
        <source>%1 since %2 (p = %3)</source>
        <translation>%1 seit %2 (p = %3)</translation>
    </message>
    <message>
        <source>Beyond three sigma</source>
        <translation>Jenseits von drei Sigma</translation>
    </message>
    <message>
        <source>Nine on one side of the mean</source>
        <translation>Neun auf einer Seite des Mittelwerts</translation>
    </message>
    <message>
        <source>Six rising or falling</source>
        <translation>Sechs steigend oder fallend</translation>
    </message>
    <message>
        <source>Over time, what passed</source>
        <translation>Im Lauf der Zeit, was bestanden hat</translation>
    </message>
    <message>
        <source>trend</source>
        <translation>Trend</translation>
    </message>
    <message>
        <source>step</source>
        <translation>Sprung</translation>
    </message>
    <message>
        <source>Sigma</source>
        <translation>Sigma</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>Regeln</translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>war %1 gemeint?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2?</source>
        <translation>war %1 oder %2 gemeint?</translation>
    </message>
    <message>
        <source>TEXT</source>
        <translation>TEXT</translation>
    </message>
    <message>
        <source>Reports, folders, - for standard input, or one archive: a file that ends in .zya or postgresql://USER@HOST/DATABASE</source>
        <translation>Berichte, Ordner, - für die Standardeingabe, oder ein Archiv: eine Datei, die auf .zya endet, oder postgresql://USER@HOST/DATABASE</translation>
    </message>
    <message>
        <source>Only runs of this product</source>
        <translation>Nur Läufe dieses Produkts</translation>
    </message>
    <message>
        <source>Only runs of this production lot</source>
        <translation>Nur Läufe dieses Fertigungsloses</translation>
    </message>
    <message>
        <source>Only runs of this station</source>
        <translation>Nur Läufe dieser Station</translation>
    </message>
    <message>
        <source>Only runs of this test program</source>
        <translation>Nur Läufe dieses Prüfprogramms</translation>
    </message>
    <message>
        <source>Only runs of the unit with this serial</source>
        <translation>Nur Läufe des Prüflings mit dieser Seriennummer</translation>
    </message>
    <message>
        <source>Only runs that started then or later: 2026-11-24, 2026-11-24T13:00</source>
        <translation>Nur Läufe, die dann oder später begannen: 2026-11-24, 2026-11-24T13:00</translation>
    </message>
    <message>
        <source>TIME</source>
        <translation>ZEIT</translation>
    </message>
    <message>
        <source>Only runs that started before; a day means its beginning</source>
        <translation>Nur Läufe, die vorher begannen; ein Tag meint seinen Anfang</translation>
    </message>
    <message>
        <source>A serial of one product in several lots is one unit</source>
        <translation>Eine Seriennummer eines Produkts in mehreren Losen ist ein Prüfling</translation>
    </message>
    <message>
        <source>%1: &apos;%2&apos; is no time</source>
        <translation>%1: &apos;%2&apos; ist keine Zeit</translation>
    </message>
    <message>
        <source>write a day as 2026-11-24, a time as 2026-11-24T13:00 or, with an offset, 2026-11-24T13:00+01:00</source>
        <translation>einen Tag als 2026-11-24 schreiben, eine Zeit als 2026-11-24T13:00 oder mit Zeitzone 2026-11-24T13:00+01:00</translation>
    </message>
    <message>
        <source>-o and --json exclude each other</source>
        <translation>-o und --json schließen einander aus</translation>
    </message>
    <message>
        <source>choose one of them</source>
        <translation>eines davon wählen</translation>
    </message>
    <message>
        <source>there is nothing to tell about the runs that were chosen</source>
        <translation>über die gewählten Läufe gibt es nichts zu sagen</translation>
    </message>
    <message>
        <source>there is not enough memory for it</source>
        <translation>dafür reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>-f, --scaled and --force are for a file with the figures</source>
        <translation>-f, --scaled und --force gelten für eine Datei mit den Zahlen</translation>
    </message>
    <message>
        <source>add -o FILE, or -o - for standard output</source>
        <translation>-o FILE ergänzen, oder -o - für die Standardausgabe</translation>
    </message>
    <message>
        <source>File for the figures; its extension chooses the format; - for standard output</source>
        <translation>Datei für die Zahlen; ihre Endung wählt das Format; - für die Standardausgabe</translation>
    </message>
    <message>
        <source>For programs: the summary as a JSON object a program and line</source>
        <translation>Für Programme: die Zusammenfassung als ein JSON-Objekt je Programm und Zeile</translation>
    </message>
    <message>
        <source>Prints the yield, the first-pass yield, what failed first and the smallest CPK; what is odd
about the lot goes to standard error.</source>
        <translation>Gibt die Ausbeute, die Ausbeute auf Anhieb, die ersten Fehler und die kleinsten CPK aus; was am Los
auffällt, geht auf die Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source> (did you mean &apos;%1&apos;?)</source>
        <translation> (war &apos;%1&apos; gemeint?)</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 von %3)</translation>
    </message>
    <message>
        <source>en</source>
        <comment>language of the page</comment>
        <translation>de</translation>
    </message>
    <message numerus="yes">
        <source>%n lots</source>
        <translation>
            <numerusform>%n Los</numerusform>
            <numerusform>%n Lose</numerusform>
        </translation>
    </message>
    <message>
        <source>Lot %1 · %2</source>
        <translation>Los %1 · %2</translation>
    </message>
    <message>
        <source>Made from %1</source>
        <translation>Erstellt aus %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>First pass</source>
        <translation>Auf Anhieb</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Prüflinge</translation>
    </message>
    <message numerus="yes">
        <source>%n runs</source>
        <translation>
            <numerusform>%n Lauf</numerusform>
            <numerusform>%n Läufe</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed runs</source>
        <translation>
            <numerusform>%n fehlerhafter Lauf</numerusform>
            <numerusform>%n fehlerhafte Läufe</numerusform>
        </translation>
    </message>
    <message>
        <source>Yield over time</source>
        <translation>Ausbeute im Verlauf</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Solid: yield; dashed: first pass; bars: units.</source>
        <translation>Durchgezogen: Ausbeute; gestrichelt: auf Anhieb; Balken: Prüflinge.</translation>
    </message>
    <message>
        <source>Yield by station</source>
        <translation>Ausbeute nach Station</translation>
    </message>
    <message>
        <source>The worst first, by what is sure of its failure rate.</source>
        <translation>Die schlechteste zuerst, nach dem, was an ihrer Fehlerrate sicher ist.</translation>
    </message>
    <message>
        <source>Yield by position on the panel</source>
        <translation>Ausbeute nach Position auf dem Nutzen</translation>
    </message>
    <message>
        <source>all others</source>
        <translation>alle anderen</translation>
    </message>
    <message>
        <source>What failed first</source>
        <translation>Was zuerst fehlerhaft war</translation>
    </message>
    <message numerus="yes">
        <source>and %n more: zyn units</source>
        <translation>
            <numerusform>und %n weiterer: zyn units</numerusform>
            <numerusform>und %n weitere: zyn units</numerusform>
        </translation>
    </message>
    <message>
        <source>Failed units</source>
        <translation>Fehlerhafte Prüflinge</translation>
    </message>
    <message>
        <source>Units tested more than once</source>
        <translation>Mehrmals geprüfte Prüflinge</translation>
    </message>
    <message>
        <source>LL</source>
        <translation>UG</translation>
    </message>
    <message>
        <source>UL</source>
        <translation>OG</translation>
    </message>
    <message>
        <source>rule %1</source>
        <translation>Regel %1</translation>
    </message>
    <message numerus="yes">
        <source>%n values, mean %1, sigma %2, limits %3</source>
        <translation>
            <numerusform>%n Wert, Mittelwert %1, Sigma %2, Grenzen %3</numerusform>
            <numerusform>%n Werte, Mittelwert %1, Sigma %2, Grenzen %3</numerusform>
        </translation>
    </message>
    <message>
        <source>How often: %1</source>
        <translation>Häufigkeit: %1</translation>
    </message>
    <message>
        <source>In order of time: %1</source>
        <translation>Zeitlicher Verlauf: %1</translation>
    </message>
    <message>
        <source>unit %1, %2</source>
        <translation>Prüfling %1, %2</translation>
    </message>
    <message>
        <source>A step down of %1 sigma since %2.</source>
        <translation>Ein Sprung um %1 Sigma nach unten seit %2.</translation>
    </message>
    <message>
        <source>A step up of %1 sigma since %2.</source>
        <translation>Ein Sprung um %1 Sigma nach oben seit %2.</translation>
    </message>
    <message>
        <source>A trend down of %1 sigma, begun at %2.</source>
        <translation>Ein Trend um %1 Sigma nach unten, begonnen bei %2.</translation>
    </message>
    <message>
        <source>A trend up of %1 sigma, begun at %2.</source>
        <translation>Ein Trend um %1 Sigma nach oben, begonnen bei %2.</translation>
    </message>
    <message>
        <source>rule %1, first at %2</source>
        <translation>Regel %1, zuerst bei %2</translation>
    </message>
    <message numerus="yes">
        <source>%n values are no finite number</source>
        <translation>
            <numerusform>%n Wert ist keine endliche Zahl</numerusform>
            <numerusform>%n Werte sind keine endlichen Zahlen</numerusform>
        </translation>
    </message>
    <message>
        <source>Look at this</source>
        <translation>Hier lohnt ein Blick</translation>
    </message>
    <message>
        <source>Measurements</source>
        <translation>Messungen</translation>
    </message>
    <message>
        <source>Lowest CPK first; each name leads to its pictures.</source>
        <translation>Der kleinste CPK zuerst; jeder Name führt zu seinen Bildern.</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>CPK of passed</source>
        <translation>CPK bestanden</translation>
    </message>
    <message>
        <source>Distributions and trends</source>
        <translation>Verteilungen und Verläufe</translation>
    </message>
    <message numerus="yes">
        <source>%n runs were removed</source>
        <translation>
            <numerusform>%n Lauf wurde entfernt</numerusform>
            <numerusform>%n Läufe wurden entfernt</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove old runs</source>
        <translation>Alte Läufe entfernen</translation>
    </message>
    <message>
        <source>Runs that started before this time: 2026-11-24, 2026-11-24T13:00</source>
        <translation>Läufe, die vor dieser Zeit begannen: 2026-11-24, 2026-11-24T13:00</translation>
    </message>
    <message>
        <source>What is left keeps its place: a retest does not become a first run.</source>
        <translation>Was bleibt, behält seinen Platz: Aus einem Wiederholungstest wird kein erster Lauf.</translation>
    </message>
    <message>
        <source>the run holds no results: its program had none</source>
        <translation>der Lauf enthält keine Ergebnisse: sein Programm hatte keins</translation>
    </message>
    <message>
        <source>Write the answer into a file that ends in .csv or .xlsx</source>
        <translation>Die Antwort in eine Datei schreiben, die auf .csv oder .xlsx endet</translation>
    </message>
    <message>
        <source>give it a name that ends in .csv or .xlsx</source>
        <translation>einen Namen wählen, der auf .csv oder .xlsx endet</translation>
    </message>
    <message>
        <source>what comes waits in the folder</source>
        <translation>was kommt, wartet im Ordner</translation>
    </message>
    <message>
        <source>%1: runs: %2 added, %3 there already, %4 revised</source>
        <translation>%1: Läufe: %2 hinzugefügt, %3 schon vorhanden, %4 ersetzt</translation>
    </message>
    <message>
        <source>each --to needs a format, and each format a folder</source>
        <translation>jedes --to braucht ein Format und jedes Format einen Ordner</translation>
    </message>
    <message>
        <source>give --to FOLDER -f FORMAT, as often as needed</source>
        <translation>--to ORDNER -f FORMAT angeben, so oft wie nötig</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no format that a watcher writes</source>
        <translation>&apos;%1&apos; ist kein Format, das hier geschrieben wird</translation>
    </message>
    <message>
        <source>zyn formats lists them; PDF is made by zyn convert</source>
        <translation>zyn formats zählt sie auf; PDF macht zyn convert</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>Archive and convert reports as they come</source>
        <translation>Berichte archivieren und umwandeln, wie sie kommen</translation>
    </message>
    <message>
        <source>Where testers put their reports</source>
        <translation>Wohin Tester ihre Berichte legen</translation>
    </message>
    <message>
        <source>ARCHIVE</source>
        <translation>ARCHIV</translation>
    </message>
    <message>
        <source>Folder that converted reports are written into</source>
        <translation>Ordner für umgewandelte Berichte</translation>
    </message>
    <message>
        <source>Format of the folder before it</source>
        <translation>Format des Ordners davor</translation>
    </message>
    <message>
        <source>File for monitoring: last report, waiting, errors, as JSON</source>
        <translation>Datei für die Überwachung: letzter Bericht, Wartende, Fehler, als JSON</translation>
    </message>
    <message>
        <source>End when nothing is waiting</source>
        <translation>Enden, wenn nichts wartet</translation>
    </message>
    <message>
        <source>What was taken is moved to FOLDER/done; what cannot be read and is unchanged for three seconds to FOLDER/error, with the reason beside it. While the archive is away the rest waits. SIGTERM ends it after the reports in hand.</source>
        <translation>Was übernommen wurde, kommt nach ORDNER/done; was nicht lesbar und seit drei Sekunden unverändert ist, nach ORDNER/error, mit dem Grund daneben. Solange das Archiv fehlt, wartet der Rest. SIGTERM beendet nach den Berichten in Arbeit.</translation>
    </message>
    <message>
        <source>cannot be moved to %1</source>
        <translation>kann nicht nach %1 verschoben werden</translation>
    </message>
    <message>
        <source>check the rights of the folder</source>
        <translation>die Rechte des Ordners prüfen</translation>
    </message>
    <message>
        <source>a lot becomes many reports</source>
        <translation>aus einem Los werden viele Berichte</translation>
    </message>
    <message>
        <source>STDF: also the wafers, a character for each die</source>
        <translation>STDF: auch die Wafer, ein Zeichen je Chip</translation>
    </message>
    <message>
        <source>damaged at offset %1: %2</source>
        <translation>beschädigt an Position %1: %2</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Teile</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Bestanden</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Anteil</translation>
    </message>
    <message>
        <source>Good</source>
        <translation>Gut</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Wafer %1, x %2 to %3, y %4 to %5</source>
        <translation>Wafer %1, x %2 bis %3, y %4 bis %5</translation>
    </message>
    <message>
        <source>is too wide for a map</source>
        <translation>ist zu breit für eine Karte</translation>
    </message>
    <message numerus="yes">
        <source>%n values, mean %1, sigma %2, limits %3, CPK %4 (of passed %5), %6 failed</source>
        <translation>
            <numerusform>%n Wert, Mittelwert %1, Sigma %2, Grenzen %3, CPK %4 (der bestandenen %5), %6 fehlerhaft</numerusform>
            <numerusform>%n Werte, Mittelwert %1, Sigma %2, Grenzen %3, CPK %4 (der bestandenen %5), %6 fehlerhaft</numerusform>
        </translation>
    </message>
    <message>
        <source>Wafer %1</source>
        <translation>Wafer %1</translation>
    </message>
    <message>
        <source>Yield by site</source>
        <translation>Ausbeute nach Platz</translation>
    </message>
    <message>
        <source>Bins</source>
        <translation>Bins</translation>
    </message>
    <message>
        <source>Bin %1</source>
        <translation>Bin %1</translation>
    </message>
    <message>
        <source>First start</source>
        <translation>Erster Start</translation>
    </message>
    <message>
        <source>Last start</source>
        <translation>Letzter Start</translation>
    </message>
    <message>
        <source>Units not passed</source>
        <translation>Nicht bestanden</translation>
    </message>
    <message>
        <source>Share of units that passed; the worst place stands out.</source>
        <translation>Anteil der Prüflinge, die bestanden; der schlechteste Platz ist hervorgehoben.</translation>
    </message>
    <message>
        <source>Wafers</source>
        <translation>Wafer</translation>
    </message>
    <message>
        <source>Dies that did not pass stand out.</source>
        <translation>Chips, die nicht bestanden, sind hervorgehoben.</translation>
    </message>
    <message>
        <source>Share of all first failures, and in how many runs.</source>
        <translation>Anteil an allen ersten Fehlern, und in wie vielen Läufen.</translation>
    </message>
    <message>
        <source>Share of all units.</source>
        <translation>Anteil an allen Prüflingen.</translation>
    </message>
    <message>
        <source>Units whose last run did not pass.</source>
        <translation>Prüflinge, deren letzter Lauf nicht bestand.</translation>
    </message>
    <message>
        <source>Units with several runs of one program.</source>
        <translation>Prüflinge mit mehreren Läufen eines Programms.</translation>
    </message>
    <message>
        <source>give it a name that ends in .html or .pdf</source>
        <translation>geben Sie ihr einen Namen, der auf .html oder .pdf endet</translation>
    </message>
    <message>
        <source>File to write, which ends in .html or .pdf</source>
        <translation>Zu schreibende Datei, die auf .html oder .pdf endet</translation>
    </message>
    <message>
        <source>One file without scripts: yield, failures, every measurement with its pictures, what drifts
on top. As .pdf for paper, a measurement a third of a page.</source>
        <translation>Eine Datei ohne Skripte: Ausbeute, Fehler, jede Messung mit ihren Bildern, was wandert
ganz oben. Als .pdf für Papier, eine Messung auf einem Drittel der Seite.</translation>
    </message>
    <message>
        <source>attribute &apos;%1&apos; of &apos;%2&apos; is missing</source>
        <translation>Attribut &apos;%1&apos; von &apos;%2&apos; fehlt</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has not one attribute: the parameter&apos;s key was no name</source>
        <translation>&apos;%1&apos; hat nicht genau ein Attribut: der Schlüssel des Parameters war kein Name</translation>
    </message>
    <message>
        <source>&apos;%1&apos; in &apos;%2&apos; is not in its place</source>
        <translation>&apos;%1&apos; in &apos;%2&apos; steht nicht an seinem Platz</translation>
    </message>
    <message>
        <source>&apos;%1&apos; in &apos;%2&apos; is unknown</source>
        <translation>&apos;%1&apos; in &apos;%2&apos; ist unbekannt</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is missing in &apos;%2&apos;</source>
        <translation>&apos;%1&apos; fehlt in &apos;%2&apos;</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is missing before &apos;%2&apos;</source>
        <translation>&apos;%1&apos; fehlt vor &apos;%2&apos;</translation>
    </message>
    <message>
        <source>Reports, STDF lots, folders of them, or - for standard input</source>
        <translation>Berichte, STDF-Lose, Ordner damit, oder - für die Standardeingabe</translation>
    </message>
    <message>
        <source>Reports, folders of reports, STDF lots, or - for standard input</source>
        <translation>Berichte, Ordner mit Berichten, STDF-Lose, oder - für die Standardeingabe</translation>
    </message>
    <message>
        <source>it goes on</source>
        <translation>es geht weiter</translation>
    </message>
    <message>
        <source>No run has measured a number.</source>
        <translation>Kein Lauf hat eine Zahl gemessen.</translation>
    </message>
    <message>
        <source>Runs without product and lot</source>
        <translation>Läufe ohne Produkt und Los</translation>
    </message>
    <message>
        <source>Lot %1</source>
        <translation>Los %1</translation>
    </message>
    <message>
        <source>Curve: the normal distribution that fits without outliers. Solid line: mean; dashed: limits and where something began. Failed dots lead to their units.</source>
        <translation>Kurve: die Normalverteilung, die ohne Ausreißer passt. Durchgezogen: Mittelwert; gestrichelt: Grenzen, und wo etwas begann. Fehlerhafte Punkte führen zu ihren Prüflingen.</translation>
    </message>
    <message>
        <source>Lots</source>
        <translation>Lose</translation>
    </message>
    <message>
        <source>Stations that put reports into the folder as they test, instead of a lot at once</source>
        <translation>Stationen, die Berichte in den Ordner legen, während sie prüfen, statt eines Loses auf einmal</translation>
    </message>
    <message>
        <source>Number of the first of them</source>
        <translation>Nummer der ersten von ihnen</translation>
    </message>
    <message>
        <source>Reports a minute of each station</source>
        <translation>Berichte je Minute und Station</translation>
    </message>
    <message>
        <source>How long; without it until Ctrl+C</source>
        <translation>Wie lange; ohne Angabe bis Strg+C</translation>
    </message>
    <message>
        <source>Stations write as testers do on a bad day: panels, retests on another station, copies, corrections, with wrong clocks, and late where the network was lost. Their reports are renamed in.</source>
        <translation>Stationen schreiben wie Prüfplätze an einem schlechten Tag: Nutzen, Nachprüfungen an einer anderen Station, Kopien, Korrekturen, mit falscher Uhr, und verspätet, wenn das Netz weg war. Berichte erscheinen fertig durch Umbenennen.</translation>
    </message>
    <message>
        <source>cannot be written</source>
        <translation>kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>STDF lot that the parts of every report are added to</source>
        <translation>STDF-Los, an das die Teile jedes Berichts angehängt werden</translation>
    </message>
    <message>
        <source>another zyn watch takes what comes here</source>
        <translation>ein anderes zyn watch nimmt schon, was hier ankommt</translation>
    </message>
    <message>
        <source>end that one first</source>
        <translation>jenes zuerst beenden</translation>
    </message>
    <message>
        <source>the folder cannot be written to</source>
        <translation>in den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Reports, STDF lots, folders of them, - for standard input, or other archives</source>
        <translation>Berichte, STDF-Lose, Ordner davon, - für die Standardeingabe, oder andere Archive</translation>
    </message>
    <message>
        <source>Do not keep the names of those who tested</source>
        <translation>Die Namen derer, die geprüft haben, nicht aufbewahren</translation>
    </message>
    <message>
        <source>a workbook takes all measurements</source>
        <translation>eine Arbeitsmappe nimmt alle Messwerte auf</translation>
    </message>
    <message>
        <source>give -o FILE instead of -d FOLDER</source>
        <translation>-o DATEI statt -d ORDNER angeben</translation>
    </message>
    <message>
        <source>all measurements, a row each</source>
        <translation>alle Messwerte, einer je Zeile</translation>
    </message>
    <message>
        <source>--by and --values exclude each other</source>
        <translation>--by und --values schließen einander aus</translation>
    </message>
    <message>
        <source>Without a name all measurements are listed, the lowest CPK first. A drift is a trend or a step
that is significant at 1 % after a correction for all measurements of the question, and at
least half a sigma; rules (Nelson, 1984) only mark points. With --by there are figures only; an
archive keeps those of days, which are answered without reading the values again.</source>
        <translation>Ohne Namen werden alle Messungen aufgeführt, die mit dem kleinsten CPK zuerst. Eine Drift ist ein
Trend oder ein Sprung, der nach einer Korrektur für alle Messungen der Frage auf 1 % signifikant und
mindestens ein halbes Sigma groß ist; Regeln (Nelson, 1984) markieren nur Punkte. Mit --by gibt es nur
Kennzahlen; ein Archiv führt die von Tagen, die beantwortet werden, ohne die Werte noch einmal zu lesen.</translation>
    </message>
    <message>
        <source>add -f CSV, -f XML or -f XLSX</source>
        <translation>-f CSV, -f XML oder -f XLSX angeben</translation>
    </message>
    <message>
        <source>choose CSV, XML or XLSX</source>
        <translation>CSV, XML oder XLSX wählen</translation>
    </message>
    <message>
        <source>CSV, XML or XLSX</source>
        <translation>CSV, XML oder XLSX</translation>
    </message>
    <message>
        <source>Do not keep the names of those who tested in the archive</source>
        <translation>Die Namen derer, die geprüft haben, nicht im Archiv aufbewahren</translation>
    </message>
    <message>
        <source>no number of measurement &apos;%1&apos; is among the runs that were chosen</source>
        <translation>keine Zahl der Messung &apos;%1&apos; ist unter den gewählten Läufen</translation>
    </message>
</context>
</TS>

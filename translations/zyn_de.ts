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
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>composer</name>
    <message>
        <source>%1 can&apos;t be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>the functions kept in %1 are left out: %2</source>
        <translation>die in %1 aufbewahrten Funktionen fehlen: %2</translation>
    </message>
    <message>
        <source>Move the rule in the list</source>
        <translation>Regel in der Liste verschieben</translation>
    </message>
    <message>
        <source>Composer Help</source>
        <translation>Hilfe zum Composer</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Composer of rules, version %1, with Qt %2.</source>
        <translation>Composer für Regeln, Version %1, mit Qt %2.</translation>
    </message>
    <message>
        <source>the file could not be opened</source>
        <translation>die Datei ließ sich nicht öffnen</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Move %1 Fields</source>
        <translation>%1 Felder verschieben</translation>
    </message>
    <message>
        <source>Turn the Page</source>
        <translation>Seite wechseln</translation>
    </message>
    <message>
        <source>Type in %1</source>
        <translation>Eingabe in %1</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>Line %1 will not come back: &quot;%2&quot;</source>
        <translation>Zeile %1 kommt nicht zurück: „%2“</translation>
    </message>
    <message>
        <source>Before line %1 will come: &quot;%2&quot;</source>
        <translation>Vor Zeile %1 kommt hinzu: „%2“</translation>
    </message>
    <message>
        <source>Line %1 will change: &quot;%2&quot; becomes &quot;%3&quot;</source>
        <translation>Zeile %1 ändert sich: aus „%2“ wird „%3“</translation>
    </message>
    <message>
        <source>Line %1, column %2: %3</source>
        <translation>Zeile %1, Spalte %2: %3</translation>
    </message>
    <message>
        <source>More lines will change: %1</source>
        <translation>Weitere Zeilen, die sich ändern: %1</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The text can&apos;t be handed over: it holds &quot;%1&quot;, which has a meaning of its own on the way.</source>
        <translation>Der Text kann nicht übergeben werden: Er enthält „%1“, das unterwegs eine eigene Bedeutung hat.</translation>
    </message>
    <message>
        <source>the character of code 1</source>
        <translation>das Zeichen mit dem Code 1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>is open in another composer (process %1 on %2)</source>
        <translation>ist in einem anderen Composer geöffnet (Prozess %1 auf %2)</translation>
    </message>
    <message>
        <source>is open in another composer, or one left its lock %1; when none has it open, remove the lock</source>
        <translation>ist in einem anderen Composer geöffnet, oder einer hat die Sperrdatei %1 zurückgelassen; wenn keiner sie geöffnet hat, kann die Sperrdatei gelöscht werden</translation>
    </message>
    <message>
        <source>can&apos;t be saved: %1</source>
        <translation>kann nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>there are no rights to write in its folder</source>
        <translation>die Rechte zum Schreiben in den Ordner fehlen</translation>
    </message>
    <message>
        <source>its lock %1 can&apos;t be made</source>
        <translation>die Sperrdatei %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>is no ordinary file</source>
        <translation>ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>%1 was removed by somebody else in the meantime</source>
        <translation>%1 wurde inzwischen von jemand anderem gelöscht</translation>
    </message>
    <message>
        <source>%1 was made by somebody else in the meantime</source>
        <translation>%1 wurde inzwischen von jemand anderem angelegt</translation>
    </message>
    <message>
        <source>%1 was changed by somebody else in the meantime</source>
        <translation>%1 wurde inzwischen von jemand anderem geändert</translation>
    </message>
    <message>
        <source>is there already</source>
        <translation>ist schon vorhanden</translation>
    </message>
    <message>
        <source>can&apos;t be saved: there are no rights to write it</source>
        <translation>kann nicht gespeichert werden: Die Rechte zum Schreiben fehlen</translation>
    </message>
    <message>
        <source>has no rule &quot;%1&quot;</source>
        <translation>hat keine Regel „%1“</translation>
    </message>
    <message>
        <source>takes no rule without a name</source>
        <translation>nimmt keine Regel ohne Namen auf</translation>
    </message>
    <message>
        <source>has a rule &quot;%1&quot; already</source>
        <translation>hat schon eine Regel „%1“</translation>
    </message>
    <message>
        <source>has no deleted rule number %1</source>
        <translation>hat keine gelöschte Regel mit der Nummer %1</translation>
    </message>
    <message>
        <source>There is no such place.</source>
        <translation>Diese Stelle gibt es nicht.</translation>
    </message>
    <message>
        <source>Its driver is missing.</source>
        <translation>Der Treiber fehlt.</translation>
    </message>
    <message>
        <source>The session can&apos;t be made one that only reads.</source>
        <translation>Die Sitzung lässt sich nicht auf das Lesen beschränken.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Two rules would have the file %1.</source>
        <translation>Zwei Regeln bekämen die Datei %1.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written as UTF-8.</source>
        <translation>%1 kann nicht als UTF-8 geschrieben werden.</translation>
    </message>
    <message>
        <source>There is no folder %1.</source>
        <translation>Es gibt keinen Ordner %1.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read.</source>
        <translation>%1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is no UTF-8.</source>
        <translation>%1 ist kein UTF-8.</translation>
    </message>
    <message>
        <source>time unknown</source>
        <translation>Zeit unbekannt</translation>
    </message>
    <message>
        <source>Play the session and write a picture of the composer.</source>
        <translation>Die Sitzung abspielen und ein Bild des Composers schreiben.</translation>
    </message>
    <message>
        <source>Write each rule into a text file of the folder.</source>
        <translation>Jede Regel in eine Textdatei des Ordners schreiben.</translation>
    </message>
    <message>
        <source>Tell what is wrong in the rules.</source>
        <translation>Sagen, was in den Regeln falsch ist.</translation>
    </message>
    <message>
        <source>Show texts in a language such as &quot;de&quot; or &quot;en&quot;, in place of the system&apos;s.</source>
        <translation>Texte in einer Sprache wie „de“ oder „en“ zeigen statt in der des Systems.</translation>
    </message>
    <message>
        <source>A JSON catalogue or a SQLite database, or with --picture a recorded session.</source>
        <translation>Ein JSON-Katalog oder eine SQLite-Datenbank, oder mit --picture eine aufgezeichnete Sitzung.</translation>
    </message>
    <message>
        <source>A file of rules.</source>
        <translation>Eine Regeldatei.</translation>
    </message>
    <message>
        <source>name one session</source>
        <translation>eine Sitzung ist zu nennen</translation>
    </message>
    <message>
        <source>name one file of rules</source>
        <translation>eine Regeldatei ist zu nennen</translation>
    </message>
    <message>
        <source>name a file of rules and a catalogue</source>
        <translation>eine Regeldatei und ein Katalog sind zu nennen</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Error in line %1, column %2: %3</source>
        <translation>Fehler in Zeile %1, Spalte %2: %3</translation>
    </message>
    <message>
        <source>Warning in line %1, column %2: %3</source>
        <translation>Warnung in Zeile %1, Spalte %2: %3</translation>
    </message>
    <message>
        <source>Blank lines</source>
        <translation>Leerzeilen</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Anweisung</translation>
    </message>
    <message>
        <source>Head</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>Rest of a condition</source>
        <translation>Rest einer Bedingung</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Select</translation>
    </message>
    <message>
        <source>Select list</source>
        <translation>Select-Liste</translation>
    </message>
    <message>
        <source>From</source>
        <translation>From</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Where</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Group by</translation>
    </message>
    <message>
        <source>Order by</source>
        <translation>Order by</translation>
    </message>
    <message>
        <source>Row limit</source>
        <translation>Zeilengrenze</translation>
    </message>
    <message>
        <source>SelectDo</source>
        <translation>SelectDo</translation>
    </message>
    <message>
        <source>SelectEOS</source>
        <translation>SelectEOS</translation>
    </message>
    <message>
        <source>SelectEmpty</source>
        <translation>SelectEmpty</translation>
    </message>
    <message>
        <source>SelectError</source>
        <translation>SelectError</translation>
    </message>
    <message>
        <source>If</source>
        <translation>If</translation>
    </message>
    <message>
        <source>Else</source>
        <translation>Else</translation>
    </message>
    <message>
        <source>For</source>
        <translation>For</translation>
    </message>
    <message>
        <source>While</source>
        <translation>While</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Repeat</translation>
    </message>
    <message>
        <source>On case</source>
        <translation>On case</translation>
    </message>
    <message>
        <source>Case row</source>
        <translation>Fall</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>The text holds half of a character and can&apos;t be written as UTF-8.</source>
        <translation>Der Text enthält ein halbes Zeichen und kann nicht als UTF-8 geschrieben werden.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Notiz: %1</translation>
    </message>
</context>
<context>
    <name>functions</name>
    <message>
        <source>aggregate</source>
        <translation>Aggregat</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>json</source>
        <translation>JSON</translation>
    </message>
    <message>
        <source>any value</source>
        <translation>jeder Wert</translation>
    </message>
    <message>
        <source>The mean of the rows.</source>
        <translation>Der Mittelwert der Zeilen.</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>How many rows have a value; * counts all.</source>
        <translation>Wie viele Zeilen einen Wert haben; * zählt alle.</translation>
    </message>
    <message>
        <source>[separator]</source>
        <translation>[Trennzeichen]</translation>
    </message>
    <message>
        <source>The values of the rows as one text.</source>
        <translation>Die Werte der Zeilen als ein Text.</translation>
    </message>
    <message>
        <source>[more]</source>
        <translation>[weitere]</translation>
    </message>
    <message>
        <source>The greatest of the rows, or of several values.</source>
        <translation>Der größte Wert der Zeilen oder von mehreren Werten.</translation>
    </message>
    <message>
        <source>The least of the rows, or of several values.</source>
        <translation>Der kleinste Wert der Zeilen oder von mehreren Werten.</translation>
    </message>
    <message>
        <source>The sum of the rows, null where none has a value.</source>
        <translation>Die Summe der Zeilen, null, wo keine einen Wert hat.</translation>
    </message>
    <message>
        <source>The sum of the rows as a floating number, at least 0.0.</source>
        <translation>Die Summe der Zeilen als Gleitkommazahl, mindestens 0.0.</translation>
    </message>
    <message>
        <source>The number without its sign.</source>
        <translation>Die Zahl ohne ihr Vorzeichen.</translation>
    </message>
    <message>
        <source>The arc cosine.</source>
        <translation>Der Arkuskosinus.</translation>
    </message>
    <message>
        <source>The hyperbolic arc cosine.</source>
        <translation>Der Areakosinus hyperbolicus.</translation>
    </message>
    <message>
        <source>The arc sine.</source>
        <translation>Der Arkussinus.</translation>
    </message>
    <message>
        <source>The hyperbolic arc sine.</source>
        <translation>Der Areasinus hyperbolicus.</translation>
    </message>
    <message>
        <source>The arc tangent.</source>
        <translation>Der Arkustangens.</translation>
    </message>
    <message>
        <source>y</source>
        <translation>y</translation>
    </message>
    <message>
        <source>x</source>
        <translation>x</translation>
    </message>
    <message>
        <source>The arc tangent of y / x, in the quadrant of both.</source>
        <translation>Der Arkustangens von y / x, im Quadranten der beiden.</translation>
    </message>
    <message>
        <source>The hyperbolic arc tangent.</source>
        <translation>Der Areatangens hyperbolicus.</translation>
    </message>
    <message>
        <source>The next whole number upwards.</source>
        <translation>Die nächste ganze Zahl nach oben.</translation>
    </message>
    <message>
        <source>The cosine of an angle in radians.</source>
        <translation>Der Kosinus eines Winkels im Bogenmaß.</translation>
    </message>
    <message>
        <source>The hyperbolic cosine.</source>
        <translation>Der Kosinus hyperbolicus.</translation>
    </message>
    <message>
        <source>radians</source>
        <translation>Bogenmaß</translation>
    </message>
    <message>
        <source>An angle in degrees.</source>
        <translation>Ein Winkel in Grad.</translation>
    </message>
    <message>
        <source>e to the power of the number.</source>
        <translation>e hoch die Zahl.</translation>
    </message>
    <message>
        <source>The next whole number downwards.</source>
        <translation>Die nächste ganze Zahl nach unten.</translation>
    </message>
    <message>
        <source>The natural logarithm.</source>
        <translation>Der natürliche Logarithmus.</translation>
    </message>
    <message>
        <source>[value]</source>
        <translation>[Wert]</translation>
    </message>
    <message>
        <source>The logarithm to base 10; of value to base number.</source>
        <translation>Der Logarithmus zur Basis 10; von Wert zur Basis Zahl.</translation>
    </message>
    <message>
        <source>The logarithm to base 10.</source>
        <translation>Der Logarithmus zur Basis 10.</translation>
    </message>
    <message>
        <source>The logarithm to base 2.</source>
        <translation>Der Logarithmus zur Basis 2.</translation>
    </message>
    <message>
        <source>divisor</source>
        <translation>Teiler</translation>
    </message>
    <message>
        <source>The rest of a division.</source>
        <translation>Der Rest einer Division.</translation>
    </message>
    <message>
        <source>The number pi.</source>
        <translation>Die Zahl Pi.</translation>
    </message>
    <message>
        <source>base</source>
        <translation>Basis</translation>
    </message>
    <message>
        <source>exponent</source>
        <translation>Exponent</translation>
    </message>
    <message>
        <source>base to the power of exponent.</source>
        <translation>Basis hoch Exponent.</translation>
    </message>
    <message>
        <source>degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>An angle in radians.</source>
        <translation>Ein Winkel im Bogenmaß.</translation>
    </message>
    <message>
        <source>A whole number at random.</source>
        <translation>Eine zufällige ganze Zahl.</translation>
    </message>
    <message>
        <source>[digits]</source>
        <translation>[Stellen]</translation>
    </message>
    <message>
        <source>Rounded to so many digits behind the point.</source>
        <translation>Gerundet auf so viele Stellen hinter dem Komma.</translation>
    </message>
    <message>
        <source>-1, 0 or 1.</source>
        <translation>-1, 0 oder 1.</translation>
    </message>
    <message>
        <source>The sine of an angle in radians.</source>
        <translation>Der Sinus eines Winkels im Bogenmaß.</translation>
    </message>
    <message>
        <source>The hyperbolic sine.</source>
        <translation>Der Sinus hyperbolicus.</translation>
    </message>
    <message>
        <source>The square root.</source>
        <translation>Die Quadratwurzel.</translation>
    </message>
    <message>
        <source>The tangent of an angle in radians.</source>
        <translation>Der Tangens eines Winkels im Bogenmaß.</translation>
    </message>
    <message>
        <source>The hyperbolic tangent.</source>
        <translation>Der Tangens hyperbolicus.</translation>
    </message>
    <message>
        <source>The number without what stands behind its point.</source>
        <translation>Die Zahl ohne ihre Stellen hinter dem Komma.</translation>
    </message>
    <message>
        <source>code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>The characters of these codes.</source>
        <translation>Die Zeichen dieser Codes.</translation>
    </message>
    <message>
        <source>pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>[values]</source>
        <translation>[Werte]</translation>
    </message>
    <message>
        <source>The pattern with the values in their places.</source>
        <translation>Das Muster mit den Werten an ihren Stellen.</translation>
    </message>
    <message>
        <source>Whether the text is like a pattern of * and ?.</source>
        <translation>Ob der Text einem Muster mit * und ? entspricht.</translation>
    </message>
    <message>
        <source>Its bytes as hexadecimal digits.</source>
        <translation>Seine Bytes als hexadezimale Ziffern.</translation>
    </message>
    <message>
        <source>part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>Where the part begins, from 1; 0 for nowhere.</source>
        <translation>Wo der Teil beginnt, ab 1; 0 für nirgends.</translation>
    </message>
    <message>
        <source>How many characters it has.</source>
        <translation>Wie viele Zeichen er hat.</translation>
    </message>
    <message>
        <source>[escape]</source>
        <translation>[Fluchtzeichen]</translation>
    </message>
    <message>
        <source>Whether the text is like a pattern of % and _.</source>
        <translation>Ob der Text einem Muster mit % und _ entspricht.</translation>
    </message>
    <message>
        <source>In small letters.</source>
        <translation>In Kleinbuchstaben.</translation>
    </message>
    <message>
        <source>[characters]</source>
        <translation>[Zeichen]</translation>
    </message>
    <message>
        <source>Without blanks, or these characters, at its start.</source>
        <translation>Ohne Leerzeichen oder diese Zeichen am Anfang.</translation>
    </message>
    <message>
        <source>The value as it stands in a statement.</source>
        <translation>Der Wert, wie er in einer Anweisung steht.</translation>
    </message>
    <message>
        <source>other</source>
        <translation>anderer</translation>
    </message>
    <message>
        <source>With another part wherever the part stands.</source>
        <translation>Mit einem anderen Teil überall, wo der Teil steht.</translation>
    </message>
    <message>
        <source>Without blanks, or these characters, at its end.</source>
        <translation>Ohne Leerzeichen oder diese Zeichen am Ende.</translation>
    </message>
    <message>
        <source>start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>[length]</source>
        <translation>[Länge]</translation>
    </message>
    <message>
        <source>A part, from a place that is counted from 1.</source>
        <translation>Ein Teil, ab einer Stelle, die von 1 an gezählt wird.</translation>
    </message>
    <message>
        <source>Without blanks, or these characters, at both ends.</source>
        <translation>Ohne Leerzeichen oder diese Zeichen an beiden Enden.</translation>
    </message>
    <message>
        <source>The code of its first character.</source>
        <translation>Der Code seines ersten Zeichens.</translation>
    </message>
    <message>
        <source>In capital letters.</source>
        <translation>In Großbuchstaben.</translation>
    </message>
    <message>
        <source>[time]</source>
        <translation>[Zeit]</translation>
    </message>
    <message>
        <source>[modifiers]</source>
        <translation>[Änderungen]</translation>
    </message>
    <message>
        <source>YYYY-MM-DD; of now, when no time is given.</source>
        <translation>JJJJ-MM-TT; von jetzt, wenn keine Zeit angegeben ist.</translation>
    </message>
    <message>
        <source>YYYY-MM-DD HH:MM:SS.</source>
        <translation>JJJJ-MM-TT hh:mm:ss.</translation>
    </message>
    <message>
        <source>Days since noon of 24 November 4714 BC.</source>
        <translation>Tage seit dem Mittag des 24. November 4714 v. Chr.</translation>
    </message>
    <message>
        <source>format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>A time in a format such as &apos;%Y-%m&apos;.</source>
        <translation>Eine Zeit in einem Format wie &apos;%Y-%m&apos;.</translation>
    </message>
    <message>
        <source>HH:MM:SS.</source>
        <translation>hh:mm:ss.</translation>
    </message>
    <message>
        <source>Seconds since the beginning of 1970.</source>
        <translation>Sekunden seit dem Beginn des Jahres 1970.</translation>
    </message>
    <message>
        <source>JSON without needless blanks.</source>
        <translation>JSON ohne überflüssige Leerzeichen.</translation>
    </message>
    <message>
        <source>An array of the values.</source>
        <translation>Ein Array der Werte.</translation>
    </message>
    <message>
        <source>[path]</source>
        <translation>[Pfad]</translation>
    </message>
    <message>
        <source>How many elements an array has.</source>
        <translation>Wie viele Elemente ein Array hat.</translation>
    </message>
    <message>
        <source>path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>What stands at the path.</source>
        <translation>Was an dem Pfad steht.</translation>
    </message>
    <message>
        <source>The values of the rows as an array.</source>
        <translation>Die Werte der Zeilen als Array.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>The rows as an object.</source>
        <translation>Die Zeilen als Objekt.</translation>
    </message>
    <message>
        <source>With what is not there yet.</source>
        <translation>Mit dem, was noch nicht da ist.</translation>
    </message>
    <message>
        <source>[name]</source>
        <translation>[Name]</translation>
    </message>
    <message>
        <source>An object of names and values.</source>
        <translation>Ein Objekt aus Namen und Werten.</translation>
    </message>
    <message>
        <source>patch</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>With another object merged into it.</source>
        <translation>Mit einem anderen Objekt zusammengeführt.</translation>
    </message>
    <message>
        <source>The value as JSON.</source>
        <translation>Der Wert als JSON.</translation>
    </message>
    <message>
        <source>Without what stands at the path.</source>
        <translation>Ohne das, was an dem Pfad steht.</translation>
    </message>
    <message>
        <source>With another value for what is there.</source>
        <translation>Mit einem anderen Wert für das, was da ist.</translation>
    </message>
    <message>
        <source>With a value at the path, in any case.</source>
        <translation>Mit einem Wert an dem Pfad, in jedem Fall.</translation>
    </message>
    <message>
        <source>What kind of value it is.</source>
        <translation>Welche Art von Wert es ist.</translation>
    </message>
    <message>
        <source>Whether it is JSON.</source>
        <translation>Ob es JSON ist.</translation>
    </message>
    <message>
        <source>The first that is not null.</source>
        <translation>Der erste, der nicht null ist.</translation>
    </message>
    <message>
        <source>The value, or the other where it is null.</source>
        <translation>Der Wert, oder der andere, wo er null ist.</translation>
    </message>
    <message>
        <source>condition</source>
        <translation>Bedingung</translation>
    </message>
    <message>
        <source>One of the two, by the condition.</source>
        <translation>Einer der beiden, je nach Bedingung.</translation>
    </message>
    <message>
        <source>The value, or null where both are the same.</source>
        <translation>Der Wert, oder null, wo beide gleich sind.</translation>
    </message>
    <message>
        <source>What it is: null, integer, real, text or blob.</source>
        <translation>Was er ist: null, integer, real, text oder blob.</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>So many bytes, which are 0.</source>
        <translation>So viele Bytes, die 0 sind.</translation>
    </message>
    <message>
        <source>The greatest of the rows.</source>
        <translation>Der größte Wert der Zeilen.</translation>
    </message>
    <message>
        <source>The least of the rows.</source>
        <translation>Der kleinste Wert der Zeilen.</translation>
    </message>
    <message>
        <source>The texts one behind the other.</source>
        <translation>Die Texte hintereinander.</translation>
    </message>
    <message>
        <source>length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>So many characters from its start.</source>
        <translation>So viele Zeichen vom Anfang.</translation>
    </message>
    <message>
        <source>Without blanks at its start.</source>
        <translation>Ohne Leerzeichen am Anfang.</translation>
    </message>
    <message>
        <source>So many characters from its end.</source>
        <translation>So viele Zeichen vom Ende.</translation>
    </message>
    <message>
        <source>Without blanks at its end.</source>
        <translation>Ohne Leerzeichen am Ende.</translation>
    </message>
</context>
<context>
    <name>kit</name>
    <message>
        <source>the catalogue</source>
        <translation>der Katalog</translation>
    </message>
    <message>
        <source>table %1</source>
        <translation>Tabelle %1</translation>
    </message>
    <message>
        <source>field %1.%2</source>
        <translation>Feld %1.%2</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>is no object</source>
        <translation>ist kein Objekt</translation>
    </message>
    <message>
        <source>has no &quot;%1&quot;</source>
        <translation>hat kein „%1“</translation>
    </message>
    <message>
        <source>has a &quot;%1&quot; that is no string</source>
        <translation>hat ein „%1“, das keine Zeichenkette ist</translation>
    </message>
    <message>
        <source>has &quot;%1&quot; that are no array</source>
        <translation>hat „%1“, die kein Array sind</translation>
    </message>
    <message>
        <source>has an empty &quot;%1&quot;</source>
        <translation>hat ein leeres „%1“</translation>
    </message>
    <message>
        <source>has a &quot;%1&quot; that %2</source>
        <translation>hat ein ungeeignetes „%1“: Es %2</translation>
    </message>
    <message>
        <source>has &quot;indexes&quot; that are no whole number</source>
        <translation>hat „indexes“, die keine ganze Zahl sind</translation>
    </message>
    <message>
        <source>has %1 indexes, and 0 to %2 are possible</source>
        <translation>hat %1 Indexe, und 0 bis %2 sind möglich</translation>
    </message>
    <message>
        <source>has a &quot;flagged&quot; that is neither true nor false</source>
        <translation>hat ein „flagged“, das weder true noch false ist</translation>
    </message>
    <message>
        <source>has a &quot;code&quot; of %1 characters, and it must have %2</source>
        <translation>hat ein „code“ aus %1 Zeichen, und es müssen %2 sein</translation>
    </message>
    <message>
        <source>table %1, field number %2,</source>
        <translation>Tabelle %1, Feld Nummer %2,</translation>
    </message>
    <message>
        <source>stands twice</source>
        <translation>ist doppelt vorhanden</translation>
    </message>
    <message>
        <source>function %1</source>
        <translation>Funktion %1</translation>
    </message>
    <message>
        <source>has an argument that is no string</source>
        <translation>hat ein Argument, das keine Zeichenkette ist</translation>
    </message>
    <message>
        <source>table number %1</source>
        <translation>Tabelle Nummer %1</translation>
    </message>
    <message>
        <source>function number %1</source>
        <translation>Funktion Nummer %1</translation>
    </message>
    <message>
        <source>is no JSON: %1</source>
        <translation>ist kein JSON: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: there is no right to read %1</source>
        <translation>kann nicht gelesen werden: Die Rechte zum Lesen von %1 fehlen</translation>
    </message>
    <message>
        <source>can&apos;t be read: there is no %1</source>
        <translation>kann nicht gelesen werden: %1 gibt es nicht</translation>
    </message>
    <message>
        <source>holds a comma</source>
        <translation>enthält ein Komma</translation>
    </message>
    <message>
        <source>holds the separator *Q*V*R*N* or runs into it</source>
        <translation>enthält das Trennzeichen *Q*V*R*N* oder ergibt es mit dem, was folgt</translation>
    </message>
    <message>
        <source>the database %1</source>
        <translation>die Datenbank %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1: %2</source>
        <translation>kann nicht gelesen werden: %1: %2</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1 is a folder</source>
        <translation>kann nicht gelesen werden: %1 ist ein Ordner</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1 is no file</source>
        <translation>kann nicht gelesen werden: %1 ist keine Datei</translation>
    </message>
    <message>
        <source>can&apos;t be read: changes in it wait to be finished; open it once with the program that it belongs to</source>
        <translation>kann nicht gelesen werden: Änderungen in ihr sind noch abzuschließen; öffnen Sie sie einmal mit dem Programm, zu dem sie gehört</translation>
    </message>
    <message>
        <source>can&apos;t be read: another program has locked it</source>
        <translation>kann nicht gelesen werden: Ein anderes Programm hat sie gesperrt</translation>
    </message>
    <message>
        <source>is damaged or encrypted: %1</source>
        <translation>ist beschädigt oder verschlüsselt: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1 is no SQLite database, or an encrypted one</source>
        <translation>kann nicht gelesen werden: %1 ist keine SQLite-Datenbank oder eine verschlüsselte</translation>
    </message>
    <message>
        <source>has no tables</source>
        <translation>hat keine Tabellen</translation>
    </message>
    <message>
        <source>it has no name</source>
        <translation>sie hat keinen Namen</translation>
    </message>
    <message>
        <source>its name is no valid text</source>
        <translation>ihr Name ist kein gültiger Text</translation>
    </message>
    <message>
        <source>its name %1</source>
        <translation>ihr Name %1</translation>
    </message>
    <message>
        <source>is no valid text</source>
        <translation>ist kein gültiger Text</translation>
    </message>
    <message>
        <source>column %1 comes without its declared type, which %2</source>
        <translation>Spalte %1 kommt ohne ihren deklarierten Typ: Er %2</translation>
    </message>
    <message>
        <source>column %1 is left out: %2</source>
        <translation>Spalte %1 fehlt: %2</translation>
    </message>
    <message>
        <source>no column of it is left</source>
        <translation>keine ihrer Spalten ist übrig</translation>
    </message>
    <message>
        <source>view %1 is left out: %2</source>
        <translation>Sicht %1 fehlt: %2</translation>
    </message>
    <message>
        <source>table %1 is left out: %2</source>
        <translation>Tabelle %1 fehlt: %2</translation>
    </message>
    <message>
        <source>has the key &quot;%1&quot; twice in one place</source>
        <translation>hat den Schlüssel „%1“ doppelt an einer Stelle</translation>
    </message>
    <message>
        <source>is no JSON, or cut short: it ends within line %1</source>
        <translation>ist kein JSON oder abgeschnitten: Es endet in Zeile %1</translation>
    </message>
    <message>
        <source>is no JSON: reading stops at line %1, column %2</source>
        <translation>ist kein JSON: Das Lesen endet in Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>is nested more than %1 levels deep</source>
        <translation>ist mehr als %1 Ebenen tief verschachtelt</translation>
    </message>
    <message>
        <source>%1: rule &quot;%2&quot;</source>
        <translation>%1: Regel „%2“</translation>
    </message>
    <message>
        <source>%1: deleted rule &quot;%2&quot;</source>
        <translation>%1: gelöschte Regel „%2“</translation>
    </message>
    <message>
        <source>%1: rule number %2</source>
        <translation>%1: Regel Nummer %2</translation>
    </message>
    <message>
        <source>%1: deleted rule number %2</source>
        <translation>%1: gelöschte Regel Nummer %2</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>ist leer</translation>
    </message>
    <message>
        <source>is no file of rules</source>
        <translation>ist keine Regeldatei</translation>
    </message>
    <message>
        <source>has a &quot;version&quot; that is no whole number</source>
        <translation>hat eine „version“, die keine ganze Zahl ist</translation>
    </message>
    <message>
        <source>was written by a later version: its format is version %1, and this program knows version %2</source>
        <translation>stammt von einer neueren Version: Das Format ist Version %1, und dieses Programm kennt Version %2</translation>
    </message>
    <message>
        <source>has a &quot;version&quot; %1, which there is not</source>
        <translation>hat eine „version“ %1, die es nicht gibt</translation>
    </message>
    <message>
        <source>has a version that is no object</source>
        <translation>hat eine Version, die kein Objekt ist</translation>
    </message>
    <message>
        <source>has two rules of the name &quot;%1&quot;</source>
        <translation>hat zwei Regeln des Namens „%1“</translation>
    </message>
    <message>
        <source>has a &quot;catalogue&quot; that is no object</source>
        <translation>hat einen „catalogue“, der kein Objekt ist</translation>
    </message>
    <message>
        <source>has a note of a node that is no object</source>
        <translation>hat eine Notiz zu einem Knoten, die kein Objekt ist</translation>
    </message>
    <message>
        <source>has an &quot;at&quot; that is no array</source>
        <translation>hat ein „at“, das kein Array ist</translation>
    </message>
    <message>
        <source>has an &quot;at&quot; with what is no place</source>
        <translation>hat ein „at“ mit etwas, das keine Stelle ist</translation>
    </message>
</context>
<context>
    <name>language</name>
    <message>
        <source>&apos;{end}&apos; is missing: this statement is not closed.</source>
        <translation>„{end}“ fehlt: Diese Anweisung ist nicht abgeschlossen.</translation>
    </message>
    <message>
        <source>Nothing is open here that &apos;{word}&apos; could close.</source>
        <translation>Hier ist nichts offen, das „{word}“ abschließen könnte.</translation>
    </message>
    <message>
        <source>This clause can&apos;t stand here: clauses have a fixed order, and each stands once.</source>
        <translation>Diese Klausel darf hier nicht stehen: Klauseln haben eine feste Reihenfolge, und jede steht nur einmal.</translation>
    </message>
    <message>
        <source>This clause is empty.</source>
        <translation>Diese Klausel ist leer.</translation>
    </message>
    <message>
        <source>A statement begins right behind &apos;{word}&apos; and not on a line of its own.</source>
        <translation>Direkt hinter „{word}“ beginnt eine Anweisung, die nicht auf einer eigenen Zeile steht.</translation>
    </message>
    <message>
        <source>The string that begins here does not end on its line.</source>
        <translation>Die Zeichenkette, die hier beginnt, endet nicht auf ihrer Zeile.</translation>
    </message>
    <message>
        <source>This &apos;{bracket}&apos; is not closed.</source>
        <translation>Dieses „{bracket}“ ist nicht geschlossen.</translation>
    </message>
    <message>
        <source>This &apos;{bracket}&apos; closes nothing.</source>
        <translation>Dieses „{bracket}“ schließt nichts.</translation>
    </message>
    <message>
        <source>An entry of this list is empty.</source>
        <translation>Ein Eintrag dieser Liste ist leer.</translation>
    </message>
    <message>
        <source>A plain field beside an aggregate needs a group by.</source>
        <translation>Ein einfaches Feld neben einer Aggregatfunktion braucht ein group by.</translation>
    </message>
    <message>
        <source>The catalogue has no table {name}.</source>
        <translation>Der Katalog hat keine Tabelle {name}.</translation>
    </message>
    <message>
        <source>The table {table} has no field {name}.</source>
        <translation>Die Tabelle {table} hat kein Feld {name}.</translation>
    </message>
    <message>
        <source>The control can&apos;t take this back: it reads it as {meaning}.</source>
        <translation>Das Steuerelement kann dies nicht wieder aufnehmen: Es liest es als {meaning}.</translation>
    </message>
    <message>
        <source>A box holds at most 32,767 characters, and here are {count}.</source>
        <translation>Ein Feld fasst höchstens 32.767 Zeichen, und hier sind es {count}.</translation>
    </message>
    <message>
        <source>{sentence} Is {nearest} meant?</source>
        <translation>{sentence} Ist {nearest} gemeint?</translation>
    </message>
    <message>
        <source>This line is no clause, and stands among clauses.</source>
        <translation>Diese Zeile ist keine Klausel und steht zwischen Klauseln.</translation>
    </message>
    <message>
        <source>An else needs an if without one.</source>
        <translation>Ein else braucht ein if, das noch keines hat.</translation>
    </message>
    <message>
        <source>This needs an on case around it, which has at most one default.</source>
        <translation>Dies braucht ein on case um sich herum, das höchstens ein default hat.</translation>
    </message>
    <message>
        <source>A row limit is a number with &apos;rows&apos; behind it.</source>
        <translation>Eine Zeilengrenze ist eine Zahl mit „rows“ dahinter.</translation>
    </message>
    <message>
        <source>An if needs a condition and &apos;then&apos; behind it.</source>
        <translation>Ein if braucht eine Bedingung und „then“ dahinter.</translation>
    </message>
    <message>
        <source>A for needs a variable, &apos;=&apos;, its first value, &apos;to&apos; and its last value.</source>
        <translation>Ein for braucht eine Variable, „=“, den ersten Wert, „to“ und den letzten Wert.</translation>
    </message>
    <message>
        <source>A condition is missing here.</source>
        <translation>Hier fehlt eine Bedingung.</translation>
    </message>
    <message>
        <source>An on case needs an expression.</source>
        <translation>Ein on case braucht einen Ausdruck.</translation>
    </message>
    <message>
        <source>A case needs a value and a colon behind it.</source>
        <translation>Ein Fall braucht einen Wert und einen Doppelpunkt dahinter.</translation>
    </message>
    <message>
        <source>a line break</source>
        <translation>einen Zeilenumbruch</translation>
    </message>
    <message>
        <source>a tab</source>
        <translation>einen Tabulator</translation>
    </message>
    <message>
        <source>a quote</source>
        <translation>ein Anführungszeichen</translation>
    </message>
    <message>
        <source>Reads {list}{from}{where}{groupBy}{orderBy}{rowLimit}.</source>
        <translation>Liest {list}{from}{where}{groupBy}{orderBy}{rowLimit}.</translation>
    </message>
    <message>
        <source> from {tables}</source>
        <translation> aus {tables}</translation>
    </message>
    <message>
        <source> where {condition}</source>
        <translation>, wo {condition}</translation>
    </message>
    <message>
        <source>, one row for each {fields}</source>
        <translation>, eine Zeile für jedes {fields}</translation>
    </message>
    <message>
        <source>, in the order of {fields}</source>
        <translation>, geordnet nach {fields}</translation>
    </message>
    <message>
        <source>, at most {count} rows</source>
        <translation>, höchstens {count} Zeilen</translation>
    </message>
    <message>
        <source>Reads {list}.</source>
        <translation>Liest {list}.</translation>
    </message>
    <message>
        <source>From {tables}.</source>
        <translation>Aus {tables}.</translation>
    </message>
    <message>
        <source>Only rows where {condition}.</source>
        <translation>Nur Zeilen, wo {condition}.</translation>
    </message>
    <message>
        <source>One row for each {fields}.</source>
        <translation>Eine Zeile für jedes {fields}.</translation>
    </message>
    <message>
        <source>In the order of {fields}.</source>
        <translation>Geordnet nach {fields}.</translation>
    </message>
    <message>
        <source>At most {count} rows.</source>
        <translation>Höchstens {count} Zeilen.</translation>
    </message>
    <message>
        <source>all fields of {table}</source>
        <translation>alle Felder von {table}</translation>
    </message>
    <message>
        <source>the number of rows</source>
        <translation>die Anzahl der Zeilen</translation>
    </message>
    <message>
        <source>{expression} into {variable}</source>
        <translation>{expression} in {variable}</translation>
    </message>
    <message>
        <source>{field} descending</source>
        <translation>{field} absteigend</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>For each row that was read:</source>
        <translation>Für jede gelesene Zeile:</translation>
    </message>
    <message>
        <source>After the last row:</source>
        <translation>Nach der letzten Zeile:</translation>
    </message>
    <message>
        <source>When there was no row:</source>
        <translation>Wenn es keine Zeile gab:</translation>
    </message>
    <message>
        <source>When reading failed:</source>
        <translation>Wenn das Lesen fehlschlug:</translation>
    </message>
    <message>
        <source>If {condition}:</source>
        <translation>Wenn {condition}:</translation>
    </message>
    <message>
        <source>Otherwise:</source>
        <translation>Sonst:</translation>
    </message>
    <message>
        <source>For each {variable} from {first} to {last}:</source>
        <translation>Für jedes {variable} von {first} bis {last}:</translation>
    </message>
    <message>
        <source>For each {variable} from {first} to {last} in steps of {step}:</source>
        <translation>Für jedes {variable} von {first} bis {last} in Schritten von {step}:</translation>
    </message>
    <message>
        <source>As long as {condition}:</source>
        <translation>Solange {condition}:</translation>
    </message>
    <message>
        <source>Once, and again until {condition}:</source>
        <translation>Einmal und dann wieder, bis {condition}:</translation>
    </message>
    <message>
        <source>Again and again:</source>
        <translation>Immer wieder:</translation>
    </message>
    <message>
        <source>By the value of {expression}:</source>
        <translation>Nach dem Wert von {expression}:</translation>
    </message>
    <message>
        <source>When it is {value}:</source>
        <translation>Wenn er {value} ist:</translation>
    </message>
    <message>
        <source>In all other cases:</source>
        <translation>In allen anderen Fällen:</translation>
    </message>
    <message>
        <source>Sets {variable} to {value}.</source>
        <translation>Setzt {variable} auf {value}.</translation>
    </message>
    <message>
        <source>Runs {statement}.</source>
        <translation>Führt {statement} aus.</translation>
    </message>
    <message>
        <source>Ends what begins with &apos;{head}&apos;.</source>
        <translation>Beendet, was mit „{head}“ beginnt.</translation>
    </message>
    <message>
        <source>Not complete: {head}</source>
        <translation>Nicht vollständig: {head}</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::ChangedNamesWindow</name>
    <message>
        <source>%1, was %2</source>
        <translation>%1, vorher %2</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>weggefallen</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>nicht im Katalog</translation>
    </message>
    <message>
        <source>a text beside a number</source>
        <translation>ein Text neben einer Zahl</translation>
    </message>
    <message>
        <source>a number beside a text</source>
        <translation>eine Zahl neben einem Text</translation>
    </message>
    <message>
        <source>a pair, and no flag any more</source>
        <translation>ein Paar, und kein Kennzeichen mehr</translation>
    </message>
    <message>
        <source>no pair, and a flag now</source>
        <translation>kein Paar, und jetzt ein Kennzeichen</translation>
    </message>
    <message>
        <source>the sum of what is no number</source>
        <translation>Summe von etwas, das keine Zahl ist</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>quoted text</source>
        <translation>Text in Anführungszeichen</translation>
    </message>
    <message>
        <source>plain statement</source>
        <translation>einfache Anweisung</translation>
    </message>
    <message>
        <source>Changed Names</source>
        <translation>Geänderte Namen</translation>
    </message>
    <message>
        <source>Names and their places</source>
        <translation>Namen und ihre Stellen</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Stelle</translation>
    </message>
    <message>
        <source>What it is</source>
        <translation>Was es ist</translation>
    </message>
    <message>
        <source>New name</source>
        <translation>Neuer Name</translation>
    </message>
    <message>
        <source>Leave All As It Is</source>
        <translation>Alles so lassen</translation>
    </message>
    <message>
        <source>%1, line %2, column %3</source>
        <translation>%1, Zeile %2, Spalte %3</translation>
    </message>
    <message>
        <source>New name of %1</source>
        <translation>Neuer Name von %1</translation>
    </message>
    <message>
        <source>leave it</source>
        <translation>so lassen</translation>
    </message>
    <message>
        <source>All names of the rules are in the catalogue.</source>
        <translation>Alle Namen der Regeln stehen im Katalog.</translation>
    </message>
    <message>
        <source>Names: %1, in rules: %2. Places that get a new name: %3.</source>
        <translation>Namen: %1, in Regeln: %2. Stellen, die einen neuen Namen bekommen: %3.</translation>
    </message>
    <message>
        <source>Two names would become %1, and could not be told apart again.</source>
        <translation>Zwei Namen würden zu %1 und wären nicht mehr zu unterscheiden.</translation>
    </message>
    <message>
        <source>Change All the Same</source>
        <translation>Trotzdem ändern</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>%1 with a flag</source>
        <translation>%1 mit Kennzeichen</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::DeletedWindow</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Deleted Rules</source>
        <translation>Gelöschte Regeln</translation>
    </message>
    <message>
        <source>Deleted rules</source>
        <translation>Gelöschte Regeln</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Delete for Good</source>
        <translation>Endgültig löschen</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for good?</source>
        <translation>„%1“ endgültig löschen?</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::EditMenu</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
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
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>We&amp;itersuchen</translation>
    </message>
    <message>
        <source>Find &amp;Previous</source>
        <translation>Vor&amp;heriges suchen</translation>
    </message>
    <message>
        <source>&amp;Undo &quot;%1&quot;</source>
        <translation>&amp;Rückgängig: „%1“</translation>
    </message>
    <message>
        <source>&amp;Redo &quot;%1&quot;</source>
        <translation>&amp;Wiederholen: „%1“</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::FindBar</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::FindWindow</name>
    <message>
        <source>Find in Rules</source>
        <translation>In Regeln suchen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Suchen in</translation>
    </message>
    <message>
        <source>Texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Names of the catalogue</source>
        <translation>Namen des Katalogs</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
    <message>
        <source>Places</source>
        <translation>Fundstellen</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>The first places: %1, in rules: %2</source>
        <translation>Die ersten Fundstellen: %1, in Regeln: %2</translation>
    </message>
    <message>
        <source>Places: %1, in rules: %2</source>
        <translation>Fundstellen: %1, in Regeln: %2</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::FunctionEditor</name>
    <message>
        <source>Edit Functions</source>
        <translation>Funktionen bearbeiten</translation>
    </message>
    <message>
        <source>Functions</source>
        <translation>Funktionen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Arguments are separated by commas; one that a call may leave out stands in brackets.</source>
        <translation>Argumente werden durch Kommas getrennt; eines, das im Aufruf fehlen darf, steht in eckigen Klammern.</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>Functions of SQLite</source>
        <translation>Funktionen von SQLite</translation>
    </message>
    <message>
        <source>Functions that servers share</source>
        <translation>Gemeinsame Funktionen der Server</translation>
    </message>
    <message>
        <source>Add &amp;Known</source>
        <translation>&amp;Bekannte hinzufügen</translation>
    </message>
    <message>
        <source>The function in row %1 has no name.</source>
        <translation>Die Funktion in Zeile %1 hat keinen Namen.</translation>
    </message>
    <message>
        <source>The function %1 stands twice.</source>
        <translation>Die Funktion %1 kommt doppelt vor.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::FunctionPicker</name>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Call</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>name(argument, argument)</source>
        <translation>name(argument, argument)</translation>
    </message>
    <message>
        <source>&amp;Call</source>
        <translation>&amp;Aufruf</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Filter functions</source>
        <translation>Funktionen filtern</translation>
    </message>
    <message>
        <source>Functions</source>
        <translation>Funktionen</translation>
    </message>
    <message>
        <source>The catalogue has no functions to choose from. Type a call in the line below, or add functions to the catalogue by File / Edit Functions.</source>
        <translation>Der Katalog bietet keine Funktionen an. Ein Aufruf kann unten eingegeben werden; Funktionen kommen durch Datei / Funktionen bearbeiten in den Katalog.</translation>
    </message>
    <message>
        <source>No function matches the filter. Any call can be typed below.</source>
        <translation>Keine Funktion passt zum Filter. Unten kann jeder Aufruf eingegeben werden.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::FurtherComposer</name>
    <message>
        <source>Leave without what was composed?</source>
        <translation>Verlassen und das Zusammengestellte verwerfen?</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::Journal</name>
    <message>
        <source>no journal can be made in %1</source>
        <translation>in %1 kann kein Journal angelegt werden</translation>
    </message>
    <message>
        <source>%1 can&apos;t be taken: its folder can&apos;t be written</source>
        <translation>%1 kann nicht übernommen werden: In den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1 was written by a later version</source>
        <translation>%1 stammt von einer neueren Version</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is damaged, or no journal; it stays where it is</source>
        <translation>%1 ist beschädigt oder kein Journal; die Datei bleibt, wo sie ist</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::MainWindow</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>This does not go into the pages: %1</source>
        <translation>Dies kommt nicht auf die Seiten: %1</translation>
    </message>
    <message>
        <source>The rule is more than one select statement and stands in the Result. Add To Result on the Select List page adds behind it; on the pages after that it replaces what is there.</source>
        <translation>Die Regel ist mehr als eine Select-Anweisung und steht im Result. Add To Result auf der Seite „Select List“ fügt dahinter an; auf den Seiten danach ersetzt es, was dort steht.</translation>
    </message>
    <message>
        <source>Rules (*.json);;All files (*)</source>
        <translation>Regeln (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Take a Statement</source>
        <translation>Anweisung übernehmen</translation>
    </message>
    <message>
        <source>Puts one select statement of the rule into the pages</source>
        <translation>Bringt eine Select-Anweisung der Regel auf die Seiten</translation>
    </message>
    <message>
        <source>no rules file</source>
        <translation>keine Regeldatei</translation>
    </message>
    <message>
        <source>%1[*] - %2 - Composer</source>
        <translation>%1[*] - %2 - Composer</translation>
    </message>
    <message>
        <source>no catalogue</source>
        <translation>kein Katalog</translation>
    </message>
    <message>
        <source>New rule</source>
        <translation>Neue Regel</translation>
    </message>
    <message>
        <source>Open Rules</source>
        <translation>Regeln öffnen</translation>
    </message>
    <message>
        <source>New Rules File</source>
        <translation>Neue Regeldatei</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save Over It</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Save Rules As</source>
        <translation>Regeln speichern unter</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>Regeln</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1 hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>Name of the rule</source>
        <translation>Name der Regel</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is in Rule / Deleted Rules now</source>
        <translation>„%1“ ist jetzt unter Regel / Gelöschte Regeln</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>A crash would lose what you compose now: %1</source>
        <translation>Bei einem Absturz ginge verloren, was gerade zusammengestellt wird: %1</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Regel speichern</translation>
    </message>
    <message>
        <source>The control can&apos;t take this text back: it holds %1 at line %2, column %3.</source>
        <translation>Diesen Text kann das Steuerelement nicht wieder aufnehmen: Er enthält %1 in Zeile %2, Spalte %3.</translation>
    </message>
    <message>
        <source>Stored, the rule can be read, copied and renamed, but not opened in the pages.</source>
        <translation>Gespeichert kann die Regel gelesen, kopiert und umbenannt, aber nicht auf den Seiten geöffnet werden.</translation>
    </message>
    <message>
        <source>Store All the Same</source>
        <translation>Trotzdem speichern</translation>
    </message>
    <message>
        <source>The text has lost what the catalogue does not have.</source>
        <translation>Dem Text fehlt nun, was der Katalog nicht kennt.</translation>
    </message>
    <message>
        <source>Store Without It</source>
        <translation>Ohne das speichern</translation>
    </message>
    <message>
        <source>What is typed on the Condition page can&apos;t be added yet.</source>
        <translation>Was auf der Seite „Condition“ steht, kann noch nicht hinzugefügt werden.</translation>
    </message>
    <message>
        <source>Add To Result would write:</source>
        <translation>Add To Result würde schreiben:</translation>
    </message>
    <message>
        <source>The pages hold parts that Add To Result does not take.</source>
        <translation>Auf den Seiten stehen Teile, die Add To Result nicht übernimmt.</translation>
    </message>
    <message>
        <source>A condition on the Where page is not applied.</source>
        <translation>Eine Bedingung auf der Seite „Where“ ist nicht angewendet.</translation>
    </message>
    <message>
        <source>Rule</source>
        <translation>Regel</translation>
    </message>
    <message>
        <source>What was composed for &quot;%1&quot; is not stored.</source>
        <translation>Was für „%1“ zusammengestellt wurde, ist nicht gespeichert.</translation>
    </message>
    <message>
        <source>The pages hold what is not in the Result.</source>
        <translation>Auf den Seiten steht etwas, das nicht im Result ist.</translation>
    </message>
    <message>
        <source>Add and Store</source>
        <translation>Hinzufügen und speichern</translation>
    </message>
    <message>
        <source>Store Without</source>
        <translation>Ohne das speichern</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Rule %1</source>
        <translation>Regel %1</translation>
    </message>
    <message>
        <source>There is a rule of this name.</source>
        <translation>Eine Regel mit diesem Namen gibt es schon.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is as it was stored</source>
        <translation>„%1“ ist so, wie sie gespeichert ist</translation>
    </message>
    <message>
        <source>The Result is empty. Add a statement to it first.</source>
        <translation>Das Result ist leer. Zuerst muss eine Anweisung hinein.</translation>
    </message>
    <message>
        <source>Open Catalogue</source>
        <translation>Katalog öffnen</translation>
    </message>
    <message>
        <source>Not all of %1 can be used.</source>
        <translation>Nicht alles aus %1 ist verwendbar.</translation>
    </message>
    <message>
        <source>Left out: %1</source>
        <translation>Ausgelassen: %1</translation>
    </message>
    <message>
        <source>There is no catalogue. Open one first.</source>
        <translation>Es ist kein Katalog geöffnet.</translation>
    </message>
    <message>
        <source>Save Catalogue As</source>
        <translation>Katalog speichern unter</translation>
    </message>
    <message>
        <source>Catalogues (*.json);;All files (*)</source>
        <translation>Kataloge (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Edit Functions</source>
        <translation>Funktionen bearbeiten</translation>
    </message>
    <message>
        <source>Kept in %1</source>
        <translation>Aufbewahrt in %1</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Composer Help</source>
        <translation>&amp;Hilfe zum Composer</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open &amp;Catalogue...</source>
        <translation>&amp;Katalog öffnen...</translation>
    </message>
    <message>
        <source>Catalogues and SQLite databases (*.json *.db *.sqlite *.sqlite3);;All files (*)</source>
        <translation>Kataloge und SQLite-Datenbanken (*.json *.db *.sqlite *.sqlite3);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open &amp;Database...</source>
        <translation>&amp;Datenbank öffnen...</translation>
    </message>
    <message>
        <source>Save Catalo&amp;gue As...</source>
        <translation>Katalo&amp;g speichern unter...</translation>
    </message>
    <message>
        <source>Edit &amp;Functions...</source>
        <translation>&amp;Funktionen bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;New Rules File...</source>
        <translation>&amp;Neue Regeldatei...</translation>
    </message>
    <message>
        <source>&amp;Open Rules File...</source>
        <translation>Regeldatei &amp;öffnen...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Export Text...</source>
        <translation>Text &amp;exportieren...</translation>
    </message>
    <message>
        <source>Export A&amp;ll Rules...</source>
        <translation>A&amp;lle Regeln exportieren...</translation>
    </message>
    <message>
        <source>&amp;Import Rules...</source>
        <translation>Regeln &amp;importieren...</translation>
    </message>
    <message>
        <source>Save Session Recor&amp;d...</source>
        <translation>Si&amp;tzungsprotokoll speichern...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>D&amp;rucken...</translation>
    </message>
    <message>
        <source>Print Previe&amp;w...</source>
        <translation>Druck&amp;vorschau...</translation>
    </message>
    <message>
        <source>Save as PD&amp;F...</source>
        <translation>Als &amp;PDF speichern...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Rule</source>
        <translation>&amp;Regel</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Umbenennen...</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Versions...</source>
        <translation>&amp;Versionen...</translation>
    </message>
    <message>
        <source>N&amp;ote...</source>
        <translation>N&amp;otiz...</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>Text &amp;kopieren</translation>
    </message>
    <message>
        <source>Deleted Rules...</source>
        <translation>&amp;Gelöschte Regeln...</translation>
    </message>
    <message>
        <source>&amp;Filter Rules</source>
        <translation>Regeln &amp;filtern</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Next Page</source>
        <translation>&amp;Nächste Seite</translation>
    </message>
    <message>
        <source>&amp;Previous Page</source>
        <translation>&amp;Vorherige Seite</translation>
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
        <source>Normal &amp;Size</source>
        <translation>N&amp;ormale Größe</translation>
    </message>
    <message>
        <source>List of &amp;Rules</source>
        <translation>&amp;Liste der Regeln</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>PDF (*.pdf);;All files (*)</source>
        <translation>PDF (*.pdf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written.</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Export All Rules</source>
        <translation>Alle Regeln exportieren</translation>
    </message>
    <message>
        <source>Rules written: %1</source>
        <translation>Geschriebene Regeln: %1</translation>
    </message>
    <message>
        <source>Import Rules</source>
        <translation>Regeln importieren</translation>
    </message>
    <message>
        <source>Rules that get another text: %1</source>
        <translation>Regeln, die einen anderen Text bekommen: %1</translation>
    </message>
    <message>
        <source>Rules read: %1</source>
        <translation>Gelesene Regeln: %1</translation>
    </message>
    <message>
        <source>The control can&apos;t take this rule back: it holds %1 at line %2, column %3. The rule can be read, copied, renamed, duplicated and deleted.</source>
        <translation>Diese Regel kann das Steuerelement nicht wieder aufnehmen: Sie enthält %1 in Zeile %2, Spalte %3. Sie kann gelesen, kopiert, umbenannt, dupliziert und gelöscht werden.</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Note of the rule</source>
        <translation>Notiz zur Regel</translation>
    </message>
    <message>
        <source>Export Text</source>
        <translation>Text exportieren</translation>
    </message>
    <message>
        <source>Save Session Record</source>
        <translation>Sitzungsprotokoll speichern</translation>
    </message>
    <message>
        <source>Sessions (*.jsonl);;All files (*)</source>
        <translation>Sitzungen (*.jsonl);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Zoom: %1 %</source>
        <translation>Zoom: %1 %</translation>
    </message>
    <message>
        <source>&amp;Statements</source>
        <translation>&amp;Anweisungen</translation>
    </message>
    <message>
        <source>F&amp;ind in Rules...</source>
        <translation>&amp;In Regeln suchen...</translation>
    </message>
    <message>
        <source>C&amp;hanged Names...</source>
        <translation>Geänderte Na&amp;men...</translation>
    </message>
    <message>
        <source>&amp;Take Back New Names</source>
        <translation>Neue Namen zurückne&amp;hmen</translation>
    </message>
    <message>
        <source>&amp;Uses of Names...</source>
        <translation>Ver&amp;wendung von Namen...</translation>
    </message>
    <message>
        <source>Changed Names</source>
        <translation>Geänderte Namen</translation>
    </message>
    <message>
        <source>There are no rules. Open some first.</source>
        <translation>Es ist keine Regeldatei geöffnet.</translation>
    </message>
    <message>
        <source>Rules with new names: %1. File / Take Back New Names undoes it.</source>
        <translation>Regeln mit neuen Namen: %1. Datei / Neue Namen zurücknehmen macht es rückgängig.</translation>
    </message>
    <message>
        <source>The new names are taken back</source>
        <translation>Die neuen Namen sind zurückgenommen</translation>
    </message>
    <message>
        <source>The new names are taken back, but for rules that are others since: %1</source>
        <translation>Die neuen Namen sind zurückgenommen, außer in Regeln, die seither anders sind: %1</translation>
    </message>
    <message>
        <source>Notes of statements are others now.</source>
        <translation>Notizen zu Anweisungen sind andere geworden.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::NamesStrip</name>
    <message>
        <source>Changed Names...</source>
        <translation>Geänderte Namen...</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>The catalogue is another one. Names gone or of another type: %1, in rules: %2.</source>
        <translation>Der Katalog ist ein anderer. Namen weggefallen oder von anderem Typ: %1, in Regeln: %2.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::NestedComposer</name>
    <message>
        <source>Condition</source>
        <translation>Bedingung</translation>
    </message>
    <message>
        <source>Sub Query</source>
        <translation>Unterabfrage</translation>
    </message>
    <message>
        <source>%1 for %2</source>
        <translation>%1 für %2</translation>
    </message>
    <message>
        <source>Nothing was added to the Result, so there is nothing to hand over.</source>
        <translation>Im Result steht nichts, also gibt es nichts zu übergeben.</translation>
    </message>
    <message>
        <source>What stands on the pages comes into the Result by the button that adds it.</source>
        <translation>Was auf den Seiten steht, kommt durch die Schaltfläche zum Hinzufügen ins Result.</translation>
    </message>
    <message>
        <source>Add To Result</source>
        <translation>Ins Result übernehmen</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Verlassen</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::NodeComposer</name>
    <message>
        <source>Edit Statement</source>
        <translation>Anweisung bearbeiten</translation>
    </message>
    <message>
        <source>What stands on the pages can&apos;t be added to the Result yet.</source>
        <translation>Was auf den Seiten steht, kann noch nicht ins Result.</translation>
    </message>
    <message>
        <source>The pages hold what is not in the Result.</source>
        <translation>Auf den Seiten steht etwas, das nicht im Result ist.</translation>
    </message>
    <message>
        <source>Add and Put Back</source>
        <translation>Hinzufügen und zurückbringen</translation>
    </message>
    <message>
        <source>Put Back Without</source>
        <translation>Ohne das zurückbringen</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Weiter bearbeiten</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::NodeEdits</name>
    <message>
        <source>This line belongs to its statement.</source>
        <translation>Diese Zeile gehört zu ihrer Anweisung.</translation>
    </message>
    <message>
        <source>A statement does not go into itself.</source>
        <translation>Eine Anweisung kann nicht in sich selbst stehen.</translation>
    </message>
    <message>
        <source>No statements stand in this one.</source>
        <translation>In dieser stehen keine Anweisungen.</translation>
    </message>
    <message>
        <source>There is no statement in the text.</source>
        <translation>Der Text enthält keine Anweisung.</translation>
    </message>
    <message>
        <source>That would change other statements too.</source>
        <translation>Das würde auch andere Anweisungen ändern.</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
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
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Edit Statement</source>
        <translation>Anweisung bearbeiten</translation>
    </message>
    <message>
        <source>Move Statement</source>
        <translation>Anweisung verschieben</translation>
    </message>
    <message>
        <source>Cut Statement</source>
        <translation>Anweisung ausschneiden</translation>
    </message>
    <message>
        <source>Delete Statement</source>
        <translation>Anweisung löschen</translation>
    </message>
    <message>
        <source>Paste Statement</source>
        <translation>Anweisung einfügen</translation>
    </message>
    <message>
        <source>&amp;Note...</source>
        <translation>&amp;Notiz...</translation>
    </message>
    <message>
        <source>The note of &quot;%1&quot; is a note of the rule now.</source>
        <translation>Die Notiz zu „%1“ ist jetzt eine Notiz der Regel.</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Note of &quot;%1&quot;</source>
        <translation>Notiz zu „%1“</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::NodeText</name>
    <message>
        <source>Edit Statement</source>
        <translation>Anweisung bearbeiten</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Anweisung</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>Leave without what was typed?</source>
        <translation>Verlassen und das Eingegebene verwerfen?</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::NoteStrip</name>
    <message>
        <source>Show Less</source>
        <translation>Weniger zeigen</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alles zeigen</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::ProblemList</name>
    <message>
        <source>No problems</source>
        <translation>Keine Probleme</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
    <message>
        <source>&amp;Problems (%1)</source>
        <translation>&amp;Probleme (%1)</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::RecordedMap</name>
    <message>
        <source>Keep What Was Edited</source>
        <translation>Bearbeitetes behalten</translation>
    </message>
    <message>
        <source>Add To Result</source>
        <translation>Ins Result übernehmen</translation>
    </message>
    <message>
        <source>The statement would be written anew as it stands on the pages. What was edited in it in the Result would be lost.</source>
        <translation>Die Anweisung würde neu geschrieben, wie sie auf den Seiten steht. Was an ihr im Result bearbeitet wurde, ginge verloren.</translation>
    </message>
    <message>
        <source>Write Anew</source>
        <translation>Neu schreiben</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::RecoveryOffer</name>
    <message>
        <source>Go On</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>What was composed</source>
        <translation>Was zusammengestellt wurde</translation>
    </message>
    <message>
        <source>&amp;Go On</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>Text &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>The composer ended before this was stored. Last step: %1.</source>
        <translation>Der Composer endete, bevor dies gespeichert war. Letzter Schritt: %1.</translation>
    </message>
    <message>
        <source>Open: %1</source>
        <translation>Geöffnet: %1</translation>
    </message>
    <message>
        <source>Stored, and not in the file yet: %1</source>
        <translation>Gespeichert, aber noch nicht in der Datei: %1</translation>
    </message>
    <message>
        <source>It was composed on another catalogue, %1. Only the text can be brought back; open that catalogue to go on.</source>
        <translation>Zusammengestellt wurde es mit einem anderen Katalog, %1. Nur der Text kann zurückgeholt werden; zum Fortsetzen muss jener Katalog geöffnet sein.</translation>
    </message>
    <message>
        <source>Not all of it can be made again. Only the text can be brought back.</source>
        <translation>Nicht alles davon lässt sich wiederherstellen. Nur der Text kann zurückgeholt werden.</translation>
    </message>
    <message>
        <source>The rule &quot;%1&quot; is another one now. What comes back is a new rule.</source>
        <translation>Die Regel „%1“ ist inzwischen eine andere. Zurück kommt eine neue Regel.</translation>
    </message>
    <message>
        <source>The Result is empty: what was composed stands in the pages.</source>
        <translation>Das Result ist leer: Was zusammengestellt wurde, steht auf den Seiten.</translation>
    </message>
    <message>
        <source>Behind that step the journal is damaged. Lines that can&apos;t be read: %1.</source>
        <translation>Hinter diesem Schritt ist das Journal beschädigt. Unlesbare Zeilen: %1.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::RulePane</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;All</source>
        <translation>&amp;Alles kopieren</translation>
    </message>
    <message>
        <source>&amp;Select All</source>
        <translation>Alles &amp;markieren</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>D&amp;rucken...</translation>
    </message>
    <message>
        <source>Save As &amp;Text...</source>
        <translation>Als &amp;Text speichern...</translation>
    </message>
    <message>
        <source>Save As Text</source>
        <translation>Als Text speichern</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::RulesList</name>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Filter rules</source>
        <translation>Regeln filtern</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>Regeln</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::ServerDialog</name>
    <message>
        <source>C&amp;onnect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>O&amp;pen</source>
        <translation>&amp;Öffnen</translation>
    </message>
    <message>
        <source>Open Database</source>
        <translation>Datenbank öffnen</translation>
    </message>
    <message>
        <source>Waiting for the server</source>
        <translation>Warten auf den Server</translation>
    </message>
    <message>
        <source>&amp;Driver</source>
        <translation>&amp;Treiber</translation>
    </message>
    <message>
        <source>&amp;Host</source>
        <translation>&amp;Rechner</translation>
    </message>
    <message>
        <source>Po&amp;rt</source>
        <translation>&amp;Port</translation>
    </message>
    <message>
        <source>Data&amp;base</source>
        <translation>&amp;Datenbank</translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation>&amp;Benutzer</translation>
    </message>
    <message>
        <source>Pass&amp;word</source>
        <translation>&amp;Kennwort</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Kennwort</translation>
    </message>
    <message>
        <source>&amp;Schemas</source>
        <translation>&amp;Schemas</translation>
    </message>
    <message>
        <source>Schemas</source>
        <translation>Schemas</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Data &amp;source</source>
        <translation>Daten&amp;quelle</translation>
    </message>
    <message>
        <source>Data source</source>
        <translation>Datenquelle</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>its name, or DRIVER=...;...</source>
        <translation>ihr Name, oder DRIVER=...;...</translation>
    </message>
    <message>
        <source>The driver for %1 is missing. On Debian it comes with the package %2.</source>
        <translation>Der Treiber für %1 fehlt. Unter Debian kommt er mit dem Paket %2.</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbindung wird aufgebaut...</translation>
    </message>
    <message>
        <source>all tables</source>
        <translation>alle Tabellen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>The user %1 sees no tables there.</source>
        <translation>Benutzer %1 sieht dort keine Tabellen.</translation>
    </message>
    <message>
        <source>Connected. Tick the schemas and press Open.</source>
        <translation>Verbunden. Schemas ankreuzen, dann Öffnen.</translation>
    </message>
    <message>
        <source>Reading the tables...</source>
        <translation>Die Tabellen werden gelesen...</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::ServerReader</name>
    <message>
        <source>The server did not answer for %1 seconds.</source>
        <translation>Der Server hat %1 Sekunden lang nicht geantwortet.</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::StatementModel</name>
    <message>
        <source>Depth %1, line %2.</source>
        <translation>Tiefe %1, Zeile %2.</translation>
    </message>
    <message>
        <source>Depth %1, begins in line %2, ends in line %3.</source>
        <translation>Tiefe %1, beginnt in Zeile %2, endet in Zeile %3.</translation>
    </message>
    <message>
        <source>Problems: %1</source>
        <translation>Probleme: %1</translation>
    </message>
    <message>
        <source>There are problems within it.</source>
        <translation>Darin gibt es Probleme.</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Notiz: %1</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::StatementTree</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Statements</source>
        <translation>&amp;Anweisungen</translation>
    </message>
    <message>
        <source>Statements</source>
        <translation>Anweisungen</translation>
    </message>
    <message>
        <source>&amp;Unfold All</source>
        <translation>Alle &amp;aufklappen</translation>
    </message>
    <message>
        <source>&amp;Fold All</source>
        <translation>Alle &amp;zuklappen</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::StatusLine</name>
    <message>
        <source>Line %1, column %2   Statements: %3   Depth: %4</source>
        <translation>Zeile %1, Spalte %2   Anweisungen: %3   Tiefe: %4</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::UsesWindow</name>
    <message>
        <source>Uses of Names</source>
        <translation>Verwendung von Namen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Which names</source>
        <translation>Welche Namen</translation>
    </message>
    <message>
        <source>All names</source>
        <translation>Alle Namen</translation>
    </message>
    <message>
        <source>Names that the catalogue has not</source>
        <translation>Namen, die der Katalog nicht hat</translation>
    </message>
    <message>
        <source>Names and their places</source>
        <translation>Namen und ihre Stellen</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Names: %1, places: %2</source>
        <translation>Namen: %1, Stellen: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>nicht im Katalog</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
</context>
<context>
    <name>zolt20::composer::VersionsWindow</name>
    <message>
        <source>What changed</source>
        <translation>Was sich geändert hat</translation>
    </message>
    <message>
        <source>Versions of %1</source>
        <translation>Versionen von %1</translation>
    </message>
    <message>
        <source>Versions</source>
        <translation>Versionen</translation>
    </message>
    <message>
        <source>Compared with</source>
        <translation>Verglichen mit</translation>
    </message>
    <message>
        <source>%1 (now)</source>
        <translation>%1 (jetzt)</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Zurückholen</translation>
    </message>
</context>
</TS>

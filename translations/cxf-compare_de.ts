<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Aktualisierungen suchen…</translation>
    </message>
    <message>
        <source>identical</source>
        <translation>identisch</translation>
    </message>
    <message>
        <source>The two samples have the same colour.</source>
        <translation>Die beiden Proben haben dieselbe Farbe.</translation>
    </message>
    <message>
        <source>match</source>
        <translation>passt</translation>
    </message>
    <message>
        <source>Within the tolerance of %1.</source>
        <translation>Innerhalb der Toleranz von %1.</translation>
    </message>
    <message>
        <source>mismatch</source>
        <translation>passt nicht</translation>
    </message>
    <message>
        <source>Beyond the tolerance of %1.</source>
        <translation>Außerhalb der Toleranz von %1.</translation>
    </message>
    <message>
        <source>lighter</source>
        <translation>heller</translation>
    </message>
    <message>
        <source>darker</source>
        <translation>dunkler</translation>
    </message>
    <message>
        <source>same lightness</source>
        <translation>gleiche Helligkeit</translation>
    </message>
    <message>
        <source>same hue angle</source>
        <translation>gleicher Farbtonwinkel</translation>
    </message>
    <message>
        <source>%1 — largest term</source>
        <translation>%1 — größter Term</translation>
    </message>
    <message>
        <source>%1

%2</source>
        <translation>%1

%2</translation>
    </message>
    <message>
        <source>The largest of the three CMC terms is highlighted: ΔL, ΔC and the CMC hue term ΔH. The Δh field shows the hue angle difference in degrees, but its highlight compares ΔH.</source>
        <translation>Der größte der drei CMC-Terme wird hervorgehoben: ΔL, ΔC und der CMC-Bunttonterm ΔH. Das Feld Δh zeigt die Differenz der Bunttonwinkel in Grad, seine Hervorhebung vergleicht aber ΔH.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>more saturated</source>
        <translation>gesättigter</translation>
    </message>
    <message>
        <source>less saturated</source>
        <translation>weniger gesättigt</translation>
    </message>
    <message>
        <source>same saturation</source>
        <translation>gleiche Sättigung</translation>
    </message>
    <message>
        <source>redder</source>
        <translation>röter</translation>
    </message>
    <message>
        <source>yellower</source>
        <translation>gelber</translation>
    </message>
    <message>
        <source>greener</source>
        <translation>grüner</translation>
    </message>
    <message>
        <source>bluer</source>
        <translation>blauer</translation>
    </message>
    <message>
        <source>Reference Spectra</source>
        <translation>Referenzspektren</translation>
    </message>
    <message>
        <source>Wavelength</source>
        <translation>Wellenlänge</translation>
    </message>
    <message>
        <source>S(λ)</source>
        <translation>S(λ)</translation>
    </message>
</context>
<context>
    <name>BkgndColorView</name>
    <message>
        <source>Drop a ColorMunki color patch or project here</source>
        <translation>ColorMunki-Farbfeld oder -Projekt hier ablegen</translation>
    </message>
    <message>
        <source>Drop a color patch or project here</source>
        <translation>Farbfeld oder Projekt hier ablegen</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Compares two measured colours from CxF documents by their CMC (2:1) colour difference. Documents named here open as if dropped on the swatches.</source>
        <translation>Vergleicht zwei gemessene Farben aus CxF-Dokumenten anhand ihres CMC-(2:1)-Farbabstands. Hier genannte Dokumente öffnen sich, als wären sie auf den Farbfeldern abgelegt worden.</translation>
    </message>
    <message>
        <source>Displays this help and exits.</source>
        <translation>Zeigt diese Hilfe an und beendet das Programm.</translation>
    </message>
    <message>
        <source>Displays the version and exits.</source>
        <translation>Zeigt die Version an und beendet das Programm.</translation>
    </message>
    <message>
        <source>reference</source>
        <translation>referenz</translation>
    </message>
    <message>
        <source>CxF document for the reference swatch (sample 1).</source>
        <translation>CxF-Dokument für das Referenzfeld (Probe 1).</translation>
    </message>
    <message>
        <source>[reference]</source>
        <translation>[referenz]</translation>
    </message>
    <message>
        <source>sample</source>
        <translation>probe</translation>
    </message>
    <message>
        <source>CxF document for the sample swatch (sample 2).</source>
        <translation>CxF-Dokument für das Probenfeld (Probe 2).</translation>
    </message>
    <message>
        <source>[sample]</source>
        <translation>[probe]</translation>
    </message>
    <message>
        <source>Try “%1 --help” for more information.</source>
        <translation>„%1 --help“ gibt weitere Informationen.</translation>
    </message>
    <message>
        <source>too many documents: give at most two, the reference and the sample (“%1” is a third)</source>
        <translation>zu viele Dokumente: höchstens zwei angeben, die Referenz und die Probe („%1“ ist ein drittes)</translation>
    </message>
</context>
<context>
    <name>CxFImport</name>
    <message>
        <source>Invalid XML data</source>
        <translation>Ungültige XML-Daten</translation>
    </message>
    <message>
        <source>No &apos;CxF&apos; key in XML data</source>
        <translation>Kein Schlüssel &apos;CxF&apos; in den XML-Daten</translation>
    </message>
    <message>
        <source>No &apos;Palette&apos; key in XML data</source>
        <translation>Kein Schlüssel &apos;Palette&apos; in den XML-Daten</translation>
    </message>
    <message>
        <source>No &apos;ColorSet&apos; key in XML data</source>
        <translation>Kein Schlüssel &apos;ColorSet&apos; in den XML-Daten</translation>
    </message>
    <message>
        <source>No &apos;Color&apos; key in XML data</source>
        <translation>Kein Schlüssel &apos;Color&apos; in den XML-Daten</translation>
    </message>
    <message>
        <source>The specified Lab colors cannot be used for comparison.</source>
        <translation>Die angegebenen Lab-Farben können nicht verglichen werden.</translation>
    </message>
    <message>
        <source>The Lab colors were not specified with D50 illuminant and 2° observer.</source>
        <translation>Die Lab-Farben wurden nicht mit Lichtart D50 und 2°-Normalbeobachter angegeben.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>DesktopWindow</name>
    <message>
        <source>Tolerance</source>
        <translation>Toleranz</translation>
    </message>
    <message>
        <source>No result yet: open a reference and a sample.</source>
        <translation>Noch kein Ergebnis: Öffnen Sie eine Referenz und eine Probe.</translation>
    </message>
    <message>
        <source>No verdict yet.</source>
        <translation>Noch kein Urteil.</translation>
    </message>
    <message>
        <source>Open &amp;Reference…</source>
        <translation>&amp;Referenz öffnen…</translation>
    </message>
    <message>
        <source>Open &amp;Sample…</source>
        <translation>&amp;Probe öffnen…</translation>
    </message>
    <message>
        <source>Open Recent R&amp;eference</source>
        <translation>Zuletzt geöffnete R&amp;eferenz</translation>
    </message>
    <message>
        <source>Open Recent Sa&amp;mple</source>
        <translation>Zuletzt geöffnete Pro&amp;be</translation>
    </message>
    <message>
        <source>&amp;Copy Results</source>
        <translation>Ergebnisse &amp;kopieren</translation>
    </message>
    <message>
        <source>Copies both samples and the differences as a table for a spreadsheet.</source>
        <translation>Kopiert beide Proben und die Differenzen als Tabelle für eine Tabellenkalkulation.</translation>
    </message>
    <message>
        <source>&amp;%1 %2</source>
        <translation>&amp;%1 %2</translation>
    </message>
    <message>
        <source>No Recent Documents</source>
        <translation>Keine zuletzt geöffneten Dokumente</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Open Reference</source>
        <translation>Referenz öffnen</translation>
    </message>
    <message>
        <source>Open Sample</source>
        <translation>Probe öffnen</translation>
    </message>
    <message>
        <source>CxF documents (*.cxf *.xml)</source>
        <translation>CxF-Dokumente (*.cxf *.xml)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1: cannot read “%2”: %3
</source>
        <translation>%1: „%2“ kann nicht gelesen werden: %3
</translation>
    </message>
    <message>
        <source>Could not read “%1”: %2 (%3)</source>
        <translation>„%1“ konnte nicht gelesen werden: %2 (%3)</translation>
    </message>
    <message>
        <source>Could not use “%1”: %2</source>
        <translation>„%1“ konnte nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>Could not use the document: %1</source>
        <translation>Das Dokument konnte nicht verwendet werden: %1</translation>
    </message>
    <message>
        <source>Empty. Drop a CxF document here or use File, Open Reference.</source>
        <translation>Leer. Legen Sie hier ein CxF-Dokument ab oder verwenden Sie Datei, Referenz öffnen.</translation>
    </message>
    <message>
        <source>Empty. Drop a CxF document here or use File, Open Sample.</source>
        <translation>Leer. Legen Sie hier ein CxF-Dokument ab oder verwenden Sie Datei, Probe öffnen.</translation>
    </message>
    <message>
        <source>%1. D50 L* %2, a* %3, b* %4.</source>
        <translation>%1. D50 L* %2, a* %3, b* %4.</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
    <message>
        <source>Sample</source>
        <translation>Probe</translation>
    </message>
    <message>
        <source>Reference L*</source>
        <translation>Referenz L*</translation>
    </message>
    <message>
        <source>Reference a*</source>
        <translation>Referenz a*</translation>
    </message>
    <message>
        <source>Reference b*</source>
        <translation>Referenz b*</translation>
    </message>
    <message>
        <source>Sample L*</source>
        <translation>Probe L*</translation>
    </message>
    <message>
        <source>Sample a*</source>
        <translation>Probe a*</translation>
    </message>
    <message>
        <source>Sample b*</source>
        <translation>Probe b*</translation>
    </message>
    <message>
        <source>ΔE CMC (2:1)</source>
        <translation>ΔE CMC (2:1)</translation>
    </message>
    <message>
        <source>ΔL CMC term</source>
        <translation>ΔL CMC-Term</translation>
    </message>
    <message>
        <source>ΔC CMC term</source>
        <translation>ΔC CMC-Term</translation>
    </message>
    <message>
        <source>Δh hue angle (°)</source>
        <translation>Δh Bunttonwinkel (°)</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>Tolerance: ΔE CMC ≤ %1</source>
        <translation>Toleranz: ΔE CMC ≤ %1</translation>
    </message>
    <message>
        <source>Set in Preferences (Ctrl+,).</source>
        <translation>Einstellbar unter Einstellungen (Strg+,).</translation>
    </message>
</context>
<context>
    <name>DocumentFile</name>
    <message>
        <source>no such file</source>
        <translation>Datei nicht vorhanden</translation>
    </message>
    <message>
        <source>permission denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation>es ist ein Verzeichnis</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine reguläre Datei</translation>
    </message>
    <message>
        <source>it is larger than %1 MiB</source>
        <translation>sie ist größer als %1 MiB</translation>
    </message>
    <message>
        <source>it is not UTF-8 text</source>
        <translation>es ist kein UTF-8-Text</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>CxF Compare</source>
        <translation>CxF Compare</translation>
    </message>
    <message>
        <source>The standard the other sample is judged against: CMC weights the difference by this colour.</source>
        <translation>Der Standard, an dem die andere Probe gemessen wird: CMC gewichtet den Abstand nach dieser Farbe.</translation>
    </message>
    <message>
        <source>Reference swatch</source>
        <translation>Referenzfeld</translation>
    </message>
    <message>
        <source>The colour compared with the reference.</source>
        <translation>Die Farbe, die mit der Referenz verglichen wird.</translation>
    </message>
    <message>
        <source>Sample swatch</source>
        <translation>Probenfeld</translation>
    </message>
    <message>
        <source>Delta E CMC 2:1</source>
        <translation>Delta E CMC 2:1</translation>
    </message>
    <message>
        <source>Delta L, CMC lightness term</source>
        <translation>Delta L, CMC-Helligkeitsterm</translation>
    </message>
    <message>
        <source>Delta C, CMC chroma term</source>
        <translation>Delta C, CMC-Buntheitsterm</translation>
    </message>
    <message>
        <source>&amp;CxF Compare</source>
        <translation>&amp;CxF Compare</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;About CxF Compare</source>
        <translation>Ü&amp;ber CxF Compare</translation>
    </message>
    <message>
        <source>&amp;Preferences…</source>
        <translation>&amp;Einstellungen…</translation>
    </message>
    <message>
        <source>Ctrl+,</source>
        <translation>Ctrl+,</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&lt;b&gt;&amp;Reference&lt;/b&gt; (sample 1)</source>
        <translation>&lt;b&gt;&amp;Referenz&lt;/b&gt; (Probe 1)</translation>
    </message>
    <message>
        <source>&lt;b&gt;&amp;Sample&lt;/b&gt; (sample 2)</source>
        <translation>&lt;b&gt;&amp;Probe&lt;/b&gt; (Probe 2)</translation>
    </message>
    <message>
        <source>ΔE CMC (2:&amp;1)</source>
        <translation>ΔE CMC (2:&amp;1)</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>Δ&amp;L CMC term</source>
        <translation>Δ&amp;L CMC-Term</translation>
    </message>
    <message>
        <source>ΔC CMC &amp;term</source>
        <translation>ΔC CMC-&amp;Term</translation>
    </message>
    <message>
        <source>Δ&amp;h hue angle (°)</source>
        <translation>Δ&amp;h Bunttonwinkel (°)</translation>
    </message>
    <message>
        <source>Delta h, hue angle difference in degrees</source>
        <translation>Delta h, Differenz der Bunttonwinkel in Grad</translation>
    </message>
    <message>
        <source>&amp;Reference Spectra</source>
        <translation>&amp;Referenzspektren</translation>
    </message>
    <message>
        <source>Ctrl+Shift+R</source>
        <translation>Ctrl+Shift+R</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Delta E tolerance</source>
        <translation>Delta-E-Toleranz</translation>
    </message>
    <message>
        <source>&amp;Tolerance (ΔE CMC 2:1):</source>
        <translation>&amp;Toleranz (ΔE CMC 2:1):</translation>
    </message>
    <message>
        <source>Differences up to the tolerance show as a match (green), larger ones as a mismatch (red).</source>
        <translation>Abstände bis zur Toleranz gelten als passend (grün), größere als nicht passend (rot).</translation>
    </message>
    <message>
        <source>The tolerance could not be saved: %1 cannot be written. It applies until CxF Compare quits.</source>
        <translation>Die Toleranz konnte nicht gespeichert werden: %1 ist nicht beschreibbar. Sie gilt, bis CxF Compare beendet wird.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>&lt;h3&gt;%1 %2&lt;/h3&gt;&lt;p&gt;Tells how far apart two measured colours are: drop a CxF document on each swatch to see their CMC (2:1) colour difference.&lt;/p&gt;&lt;p&gt;Licensed under the GNU General Public License, version 3 or later.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;%1 %2&lt;/h3&gt;&lt;p&gt;Zeigt, wie weit zwei gemessene Farben auseinanderliegen: Legen Sie auf jedem Farbfeld ein CxF-Dokument ab, um ihren CMC-(2:1)-Farbabstand zu sehen.&lt;/p&gt;&lt;p&gt;Lizenziert unter der GNU General Public License, Version 3 oder später.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>QVFileDropView</name>
    <message>
        <source>Drop a file here</source>
        <translation>Datei hier ablegen</translation>
    </message>
    <message>
        <source>Drop files here</source>
        <translation>Dateien hier ablegen</translation>
    </message>
    <message>
        <source>Drop a folder here</source>
        <translation>Ordner hier ablegen</translation>
    </message>
    <message>
        <source>Drop folders here</source>
        <translation>Ordner hier ablegen</translation>
    </message>
    <message>
        <source>Drop a file or folder here</source>
        <translation>Datei oder Ordner hier ablegen</translation>
    </message>
    <message>
        <source>Drop files or folders here</source>
        <translation>Dateien oder Ordner hier ablegen</translation>
    </message>
    <message>
        <source>Drop an image here</source>
        <translation>Bild hier ablegen</translation>
    </message>
    <message>
        <source>Drop images here</source>
        <translation>Bilder hier ablegen</translation>
    </message>
</context>
<context>
    <name>Updater</name>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>This is %1 %2.

Updates to %1 come from your system&apos;s package manager: use it to see whether a newer version is available.</source>
        <translation>Dies ist %1 %2.

Aktualisierungen von %1 kommen über die Paketverwaltung Ihres Systems: Dort sehen Sie, ob eine neuere Version verfügbar ist.</translation>
    </message>
</context>
</TS>

<?xml version='1.0' encoding='utf-8'?>
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
        <source>more chroma</source>
        <translation>bunter</translation>
    </message>
    <message>
        <source>less chroma</source>
        <translation>weniger bunt</translation>
    </message>
    <message>
        <source>same chroma</source>
        <translation>gleiche Buntheit</translation>
    </message>
    <message>
        <source>hue turned a* toward b*</source>
        <translation>Farbton von a* nach b* gedreht</translation>
    </message>
    <message>
        <source>hue turned b* toward a*</source>
        <translation>Farbton von b* nach a* gedreht</translation>
    </message>
    <message>
        <source>same hue angle</source>
        <translation>gleicher Farbtonwinkel</translation>
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
        <source>&lt;b&gt;Reference&lt;/b&gt; (sample 1)</source>
        <translation>&lt;b&gt;Referenz&lt;/b&gt; (Probe 1)</translation>
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
        <source>&lt;b&gt;Sample&lt;/b&gt; (sample 2)</source>
        <translation>&lt;b&gt;Probe&lt;/b&gt; (Probe 2)</translation>
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
        <source>ΔE CMC (2:1)</source>
        <translation>ΔE CMC (2:1)</translation>
    </message>
    <message>
        <source>Delta E CMC 2:1</source>
        <translation>Delta E CMC 2:1</translation>
    </message>
    <message>
        <source>ΔL (lightness)</source>
        <translation type="unfinished" />
    </message>
    <message>
        <source>Delta L, CMC lightness term</source>
        <translation type="unfinished" />
    </message>
    <message>
        <source>ΔC (chroma)</source>
        <translation type="unfinished" />
    </message>
    <message>
        <source>Delta C, CMC chroma term</source>
        <translation type="unfinished" />
    </message>
    <message>
        <source>ΔH (hue angle, degrees)</source>
        <translation type="unfinished" />
    </message>
    <message>
        <source>Delta H, hue angle difference in degrees</source>
        <translation type="unfinished" />
    </message>
    <message>
        <source>Hue angle difference in degrees; the highlight compares the CMC hue term.</source>
        <translation type="unfinished" />
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
    <name>Updater</name>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>This is %1 %2.

Updates to %1 come from your system's package manager: use it to see whether a newer version is available.</source>
        <translation type="unfinished" />
    </message>
</context>
</TS>
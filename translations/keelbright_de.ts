<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>ActivityEntry</name>
    <message>
        <source>is not a known kind</source>
        <translation>ist keine bekannte Art</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Junk Clean</source>
        <translation>Bereinigung</translation>
    </message>
    <message>
        <source>Organise</source>
        <translation>Ordnen</translation>
    </message>
    <message>
        <source>App Removed</source>
        <translation>App entfernt</translation>
    </message>
    <message>
        <source>Full Scan</source>
        <translation>Vollständiger Scan</translation>
    </message>
    <message>
        <source>Just now</source>
        <translation>Gerade eben</translation>
    </message>
    <message>
        <source>%1m ago</source>
        <translation>vor %1 Min.</translation>
    </message>
    <message>
        <source>%1h ago</source>
        <translation>vor %1 Std.</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>vor %n Tag</numerusform>
            <numerusform>vor %n Tagen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ActivityLogVM</name>
    <message>
        <source>Export log as CSV</source>
        <translation>Protokoll als CSV exportieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>AppInfo</name>
    <message>
        <source>Never opened.</source>
        <translation>Nie geöffnet.</translation>
    </message>
    <message numerus="yes">
        <source>Opened %n times — usage timing unknown.</source>
        <translation>
            <numerusform>%n-mal geöffnet – wann, ist unbekannt.</numerusform>
            <numerusform>%n-mal geöffnet – wann, ist unbekannt.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 day ago</source>
        <translation>vor %1 Tag</translation>
    </message>
    <message numerus="yes">
        <source>%1 days ago</source>
        <translation>
            <numerusform>vor %1 Tag</numerusform>
            <numerusform>vor %1 Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Used heavily before (%1 times, ~%2/mo). Dormant for %3 months.</source>
        <translation>
            <numerusform>Viel benutzt (%1-mal, ~%2/Monat), seit %3 Monat nicht.</numerusform>
            <numerusform>Viel benutzt (%1-mal, ~%2/Monat), seit %3 Monaten nicht.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Used regularly (%1 times total). Dormant for %2 months.</source>
        <translation>
            <numerusform>Regelmäßig benutzt (%1-mal), seit %2 Monat nicht.</numerusform>
            <numerusform>Regelmäßig benutzt (%1-mal), seit %2 Monaten nicht.</numerusform>
        </translation>
    </message>
    <message>
        <source>Opened %1 times in %2 month. Last used %3 months ago.</source>
        <translation>%1-mal in %2 Monat(en) geöffnet, zuletzt vor %3 Monaten.</translation>
    </message>
    <message numerus="yes">
        <source>Opened %1 times in %2 months. Last used %3 months ago.</source>
        <translation>
            <numerusform>%1-mal in %2 Monaten geöffnet, zuletzt vor %3 Monat.</numerusform>
            <numerusform>%1-mal in %2 Monaten geöffnet, zuletzt vor %3 Monaten.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Opened %1 times total. Last used %2 days ago.</source>
        <translation>
            <numerusform>%1-mal geöffnet, zuletzt vor %2 Tag.</numerusform>
            <numerusform>%1-mal geöffnet, zuletzt vor %2 Tagen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Opened %1 times. Last used %2 days ago.</source>
        <translation>
            <numerusform>%1-mal geöffnet, zuletzt vor %2 Tag.</numerusform>
            <numerusform>%1-mal geöffnet, zuletzt vor %2 Tagen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Installed %1 day ago — too early to judge.</source>
        <translation>Vor %1 Tag installiert – zu früh für ein Urteil.</translation>
    </message>
    <message numerus="yes">
        <source>Installed %1 days ago — too early to judge.</source>
        <translation>
            <numerusform>Vor %1 Tag installiert – zu früh für ein Urteil.</numerusform>
            <numerusform>Vor %1 Tagen installiert – zu früh für ein Urteil.</numerusform>
        </translation>
    </message>
    <message>
        <source>Opened only once, last %1.</source>
        <translation>Nur einmal geöffnet, zuletzt %1.</translation>
    </message>
    <message>
        <source>Opened only twice, last %1.</source>
        <translation>Nur zweimal geöffnet, zuletzt %1.</translation>
    </message>
    <message>
        <source>a while ago</source>
        <translation>vor längerer Zeit</translation>
    </message>
    <message numerus="yes">
        <source>Used %1 times — last opened %2.</source>
        <translation>
            <numerusform>%1-mal benutzt, zuletzt %2.</numerusform>
            <numerusform>%1-mal benutzt, zuletzt %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>today</source>
        <translation>heute</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>vor %n Monat</numerusform>
            <numerusform>vor %n Monaten</numerusform>
        </translation>
    </message>
    <message>
        <source>1 month ago</source>
        <translation>vor 1 Monat</translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>vor %n Jahr</numerusform>
            <numerusform>vor %n Jahren</numerusform>
        </translation>
    </message>
    <message>
        <source>1 year ago</source>
        <translation>vor 1 Jahr</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>AppLeftover</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Cache</source>
        <translation>Cache</translation>
    </message>
    <message>
        <source>App Support</source>
        <translation>App-Daten</translation>
    </message>
    <message>
        <source>Container</source>
        <translation>Container</translation>
    </message>
    <message>
        <source>Saved State</source>
        <translation>Gespeicherter Zustand</translation>
    </message>
    <message>
        <source>Launch Agent</source>
        <translation>Startdienst</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
</context>
<context>
    <name>ByteCountFormatter</name>
    <message>
        <source>%1 KB</source>
        <translation>%1 kB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1 PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1 EB</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0 kB</translation>
    </message>
    <message>
        <source>%1 byte</source>
        <translation>%1 Byte</translation>
    </message>
    <message numerus="yes">
        <source>%Ln bytes</source>
        <translation>
            <numerusform>%Ln Byte</numerusform>
            <numerusform>%Ln Byte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CheckTexts</name>
    <message>
        <source>The only copy on %1 is damaged or can&apos;t be read.</source>
        <translation>Die einzige Kopie auf %1 ist beschädigt oder nicht lesbar.</translation>
    </message>
    <message numerus="yes">
        <source>1 of %Ln copies on %1 is damaged or can&apos;t be read.</source>
        <translation>
            <numerusform>1 von %Ln Kopie auf %1 ist beschädigt oder nicht lesbar.</numerusform>
            <numerusform>1 von %Ln Kopien auf %1 ist beschädigt oder nicht lesbar.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 copies on %2 are damaged or can&apos;t be read.</source>
        <translation>
            <numerusform>%Ln von %1 Kopien auf %2 ist beschädigt oder nicht lesbar.</numerusform>
            <numerusform>%Ln von %1 Kopien auf %2 sind beschädigt oder nicht lesbar.</numerusform>
        </translation>
    </message>
    <message>
        <source>The list has no copies on %1.</source>
        <translation>In der Liste stehen keine Kopien auf %1.</translation>
    </message>
    <message>
        <source>There are no copies on %1 yet.</source>
        <translation>Auf %1 gibt es noch keine Kopien.</translation>
    </message>
    <message>
        <source>The only copy on %1 is readable and equal to its checksum.</source>
        <translation>Die einzige Kopie auf %1 ist lesbar und entspricht ihrer Prüfsumme.</translation>
    </message>
    <message numerus="yes">
        <source>All %Ln copies on %1 are readable and equal to their checksums.</source>
        <translation>
            <numerusform>%Ln Kopie auf %1 ist lesbar und entspricht ihrer Prüfsumme.</numerusform>
            <numerusform>Alle %Ln Kopien auf %1 sind lesbar und entsprechen ihren Prüfsummen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The only copy on %1 is readable and equal to its original.</source>
        <translation>Die einzige Kopie auf %1 ist lesbar und gleicht ihrem Original.</translation>
    </message>
    <message numerus="yes">
        <source>All %Ln copies on %1 are readable and equal to their originals.</source>
        <translation>
            <numerusform>%Ln Kopie auf %1 ist lesbar und gleicht ihrem Original.</numerusform>
            <numerusform>Alle %Ln Kopien auf %1 sind lesbar und gleichen ihren Originalen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The only copy on %1 is readable.</source>
        <translation>Die einzige Kopie auf %1 ist lesbar.</translation>
    </message>
    <message numerus="yes">
        <source>All %Ln copies on %1 are readable, but none could be compared with an unchanged original.</source>
        <translation>
            <numerusform>%Ln Kopie auf %1 ist lesbar, konnte aber nicht mit einem unveränderten Original verglichen werden.</numerusform>
            <numerusform>Alle %Ln Kopien auf %1 sind lesbar, aber keine konnte mit einem unveränderten Original verglichen werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %Ln copies on %1 are readable, and 1 of them is equal to its original.</source>
        <translation>
            <numerusform>%Ln Kopie auf %1 ist lesbar, und 1 davon gleicht ihrem Original.</numerusform>
            <numerusform>Alle %Ln Kopien auf %1 sind lesbar, und 1 davon gleicht ihrem Original.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %Ln copies on %1 are readable, and %2 of them are equal to their originals.</source>
        <translation>
            <numerusform>%Ln Kopie auf %1 ist lesbar, und %2 davon gleichen ihren Originalen.</numerusform>
            <numerusform>Alle %Ln Kopien auf %1 sind lesbar, und %2 davon gleichen ihren Originalen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>None of the %Ln copies on %1 could be compared with its checksum.</source>
        <translation>
            <numerusform>Die %Ln Kopie auf %1 konnte nicht mit ihrer Prüfsumme verglichen werden.</numerusform>
            <numerusform>Keine der %Ln Kopien auf %1 konnte mit ihrer Prüfsumme verglichen werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>1 of %Ln copies on %1 is readable and equal to its checksum.</source>
        <translation>
            <numerusform>1 von %Ln Kopie auf %1 ist lesbar und entspricht ihrer Prüfsumme.</numerusform>
            <numerusform>1 von %Ln Kopien auf %1 ist lesbar und entspricht ihrer Prüfsumme.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln copies on %2 are readable and equal to their checksums.</source>
        <translation>
            <numerusform>%1 von %Ln Kopie auf %2 sind lesbar und entsprechen ihren Prüfsummen.</numerusform>
            <numerusform>%1 von %Ln Kopien auf %2 sind lesbar und entsprechen ihren Prüfsummen.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 copy on %1 is damaged or can&apos;t be read.</source>
        <translation>1 Kopie auf %1 ist beschädigt oder nicht lesbar.</translation>
    </message>
    <message>
        <source>1 folder of copies on %1 can&apos;t be read.</source>
        <translation>1 Ordner mit Kopien auf %1 ist nicht lesbar.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln folders of copies on %1 can&apos;t be read.</source>
        <translation>
            <numerusform>%Ln Ordner mit Kopien auf %1 ist nicht lesbar.</numerusform>
            <numerusform>%Ln Ordner mit Kopien auf %1 sind nicht lesbar.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 was removed after %2 of %Ln copies had been checked.</source>
        <translation>
            <numerusform>%1 wurde entfernt, nachdem %2 von %Ln Kopie geprüft war.</numerusform>
            <numerusform>%1 wurde entfernt, nachdem %2 von %Ln Kopien geprüft waren.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The check of %1 was cancelled after %2 of %Ln copies.</source>
        <translation>
            <numerusform>Die Prüfung von %1 wurde nach %2 von %Ln Kopie abgebrochen.</numerusform>
            <numerusform>Die Prüfung von %1 wurde nach %2 von %Ln Kopien abgebrochen.</numerusform>
        </translation>
    </message>
    <message>
        <source>No fault was found until then.</source>
        <translation>Bis dahin wurde kein Fehler gefunden.</translation>
    </message>
    <message>
        <source>1 of them is damaged or can&apos;t be read.</source>
        <translation>1 davon ist beschädigt oder nicht lesbar.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of them are damaged or can&apos;t be read.</source>
        <translation>
            <numerusform>%Ln davon ist beschädigt oder nicht lesbar.</numerusform>
            <numerusform>%Ln davon sind beschädigt oder nicht lesbar.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>The copies can&apos;t be checked: %1</source>
        <translation>Die Kopien können nicht geprüft werden: %1</translation>
    </message>
    <message>
        <source>The copies can&apos;t be checked.</source>
        <translation>Die Kopien können nicht geprüft werden.</translation>
    </message>
    <message>
        <source>The next backup replaces damaged copies by new ones wherever there is an original.</source>
        <translation>Das nächste Backup ersetzt beschädigte Kopien durch neue, wo es ein Original gibt.</translation>
    </message>
    <message>
        <source>1 copy was written after the list, so it was only read.</source>
        <translation>1 Kopie wurde nach der Liste geschrieben und daher nur gelesen.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies were written after the list, so they were only read.</source>
        <translation>
            <numerusform>%Ln Kopie wurde nach der Liste geschrieben und daher nur gelesen.</numerusform>
            <numerusform>%Ln Kopien wurden nach der Liste geschrieben und daher nur gelesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 copy is not in the list, so it was not read.</source>
        <translation>1 Kopie steht nicht in der Liste und wurde daher nicht gelesen.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies are not in the list, so they were not read.</source>
        <translation>
            <numerusform>%Ln Kopie steht nicht in der Liste und wurde daher nicht gelesen.</numerusform>
            <numerusform>%Ln Kopien stehen nicht in der Liste und wurden daher nicht gelesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 line of the list can&apos;t be understood.</source>
        <translation>1 Zeile der Liste ist nicht verständlich.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln lines of the list can&apos;t be understood.</source>
        <translation>
            <numerusform>%Ln Zeile der Liste ist nicht verständlich.</numerusform>
            <numerusform>%Ln Zeilen der Liste sind nicht verständlich.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 original has changed since it was copied.</source>
        <translation>1 Original hat sich seit dem Kopieren geändert.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln originals have changed since they were copied.</source>
        <translation>
            <numerusform>%Ln Original hat sich seit dem Kopieren geändert.</numerusform>
            <numerusform>%Ln Originale haben sich seit dem Kopieren geändert.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 copy has no original any more.</source>
        <translation>Zu 1 Kopie gibt es kein Original mehr.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies have no original any more.</source>
        <translation>
            <numerusform>Zu %Ln Kopie gibt es kein Original mehr.</numerusform>
            <numerusform>Zu %Ln Kopien gibt es kein Original mehr.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 original could not be read, so its copy was not compared.</source>
        <translation>1 Original war nicht lesbar, seine Kopie wurde daher nicht verglichen.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln originals could not be read, so their copies were not compared.</source>
        <translation>
            <numerusform>%Ln Original war nicht lesbar, seine Kopie wurde daher nicht verglichen.</numerusform>
            <numerusform>%Ln Originale waren nicht lesbar, ihre Kopien wurden daher nicht verglichen.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file is not backed up yet.</source>
        <translation>1 Datei ist noch nicht gesichert.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are not backed up yet.</source>
        <translation>
            <numerusform>%Ln Datei ist noch nicht gesichert.</numerusform>
            <numerusform>%Ln Dateien sind noch nicht gesichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>This drive can&apos;t be read past a computer&apos;s memory, so copies may have been read from there.</source>
        <translation>Dieses Laufwerk lässt sich nicht am Arbeitsspeicher vorbei lesen; Kopien können daher von dort gelesen worden sein.</translation>
    </message>
    <message>
        <source>It differs from its original, which has not changed since the backup.</source>
        <translation>Sie weicht von ihrem Original ab, das sich seit dem Backup nicht geändert hat.</translation>
    </message>
    <message>
        <source>It differs from its checksum, and was not written since.</source>
        <translation>Sie weicht von ihrer Prüfsumme ab und wurde seitdem nicht geschrieben.</translation>
    </message>
    <message>
        <source>It gave different data when it was read twice.</source>
        <translation>Sie ergab bei zweimaligem Lesen verschiedene Daten.</translation>
    </message>
</context>
<context>
    <name>FileCategory</name>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>Archive</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Installers</source>
        <translation>Installationsdateien</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
</context>
<context>
    <name>FileError</name>
    <message>
        <source>read</source>
        <translation>gelesen</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>created</source>
        <translation>angelegt</translation>
    </message>
    <message>
        <source>copied</source>
        <translation>kopiert</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>ersetzt</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>verschoben</translation>
    </message>
    <message>
        <source>opened</source>
        <translation>geöffnet</translation>
    </message>
    <message>
        <source>listed completely</source>
        <translation>vollständig aufgelistet</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>moved to the Trash</source>
        <translation>in den Papierkorb gelegt</translation>
    </message>
    <message>
        <source>measured</source>
        <translation>gemessen</translation>
    </message>
    <message>
        <source>written through to the drive</source>
        <translation>bis auf das Laufwerk geschrieben</translation>
    </message>
    <message>
        <source>launched</source>
        <translation>gestartet</translation>
    </message>
    <message>
        <source>used</source>
        <translation>verwendet</translation>
    </message>
    <message>
        <source>you don&apos;t have permission</source>
        <translation>Ihnen fehlt die Berechtigung</translation>
    </message>
    <message>
        <source>it does not exist</source>
        <translation>es ist nicht vorhanden</translation>
    </message>
    <message>
        <source>there is not enough space on the drive</source>
        <translation>auf dem Laufwerk ist nicht genug Platz</translation>
    </message>
    <message>
        <source>your share of the drive is used up</source>
        <translation>Ihr Anteil am Laufwerk ist aufgebraucht</translation>
    </message>
    <message>
        <source>the drive is read-only</source>
        <translation>das Laufwerk ist schreibgeschützt</translation>
    </message>
    <message>
        <source>the drive reported an error</source>
        <translation>das Laufwerk hat einen Fehler gemeldet</translation>
    </message>
    <message>
        <source>something of that name is already there</source>
        <translation>dieser Name ist dort schon vergeben</translation>
    </message>
    <message>
        <source>a file stands in the place of a folder</source>
        <translation>statt eines Ordners liegt dort eine Datei</translation>
    </message>
    <message>
        <source>a folder stands in its place</source>
        <translation>an seiner Stelle liegt ein Ordner</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>der Name ist zu lang</translation>
    </message>
    <message>
        <source>the file is too large for the drive</source>
        <translation>die Datei ist für das Laufwerk zu groß</translation>
    </message>
    <message>
        <source>the drive does not accept it</source>
        <translation>das Laufwerk nimmt es nicht an</translation>
    </message>
    <message>
        <source>its symbolic links lead in a circle</source>
        <translation>die symbolischen Verknüpfungen führen im Kreis</translation>
    </message>
    <message>
        <source>too many files are open</source>
        <translation>es sind zu viele Dateien geöffnet</translation>
    </message>
    <message>
        <source>the drive is gone</source>
        <translation>das Laufwerk ist nicht mehr da</translation>
    </message>
    <message>
        <source>it lies on another drive</source>
        <translation>es liegt auf einem anderen Laufwerk</translation>
    </message>
    <message>
        <source>it is in use</source>
        <translation>es wird gerade benutzt</translation>
    </message>
    <message>
        <source>the network drive no longer knows it</source>
        <translation>das Netzlaufwerk kennt es nicht mehr</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>der Arbeitsspeicher reicht nicht</translation>
    </message>
    <message>
        <source>the drive did not answer in time</source>
        <translation>das Laufwerk hat nicht rechtzeitig geantwortet</translation>
    </message>
    <message>
        <source>it is not on this Mac</source>
        <translation>es ist nicht auf diesem Computer</translation>
    </message>
    <message>
        <source>it is neither a file nor a link</source>
        <translation>es ist weder eine Datei noch eine Verknüpfung</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>es hat sich während des Kopierens geändert</translation>
    </message>
    <message>
        <source>it ends before its size says</source>
        <translation>es endet früher, als seine Größe angibt</translation>
    </message>
    <message>
        <source>a symbolic link stands in the place of a folder</source>
        <translation>statt eines Ordners liegt dort eine symbolische Verknüpfung</translation>
    </message>
    <message>
        <source>the destination is no longer in its place</source>
        <translation>das Ziel ist nicht mehr an seinem Ort</translation>
    </message>
    <message>
        <source>a file whose name differs in upper and lower case only is already there</source>
        <translation>dort liegt schon eine Datei, deren Name sich nur in Groß- und Kleinschreibung unterscheidet</translation>
    </message>
    <message>
        <source>a file whose name the drive takes for the same is already there</source>
        <translation>dort liegt schon eine Datei, deren Namen das Laufwerk für denselben hält</translation>
    </message>
    <message>
        <source>the drive can&apos;t hold symbolic links</source>
        <translation>das Laufwerk kann keine symbolischen Verknüpfungen speichern</translation>
    </message>
    <message>
        <source>it is already in the Trash</source>
        <translation>es liegt schon im Papierkorb</translation>
    </message>
    <message>
        <source>the computer needs it where it is</source>
        <translation>der Computer braucht es an seinem Ort</translation>
    </message>
    <message>
        <source>a drive is mounted there</source>
        <translation>dort ist ein Laufwerk eingehängt</translation>
    </message>
    <message>
        <source>the Trash of its drive is not safe from other users</source>
        <translation>der Papierkorb seines Laufwerks ist vor anderen Benutzern nicht sicher</translation>
    </message>
    <message>
        <source>it is too large</source>
        <translation>es ist zu groß</translation>
    </message>
    <message>
        <source>the program is quitting</source>
        <translation>das Programm wird beendet</translation>
    </message>
    <message>
        <source>the reason is unknown</source>
        <translation>der Grund ist unbekannt</translation>
    </message>
    <message>
        <source>“%1” could not be %2: %3.</source>
        <translation>„%1“ konnte nicht %2 werden: %3.</translation>
    </message>
    <message>
        <source>Allow it in System Settings, under Privacy &amp; Security, Full Disk Access.</source>
        <translation>Erlauben Sie es in den Systemeinstellungen unter Datenschutz &amp; Sicherheit, Festplattenvollzugriff.</translation>
    </message>
    <message>
        <source>put back</source>
        <translation>zurückgelegt</translation>
    </message>
    <message>
        <source>it no longer lies in the Trash</source>
        <translation>es liegt nicht mehr im Papierkorb</translation>
    </message>
</context>
<context>
    <name>FullScanService</name>
    <message numerus="yes">
        <source>%n items taking up %1</source>
        <translation>
            <numerusform>%n Objekt belegt %1</numerusform>
            <numerusform>%n Objekte belegen %1</numerusform>
        </translation>
    </message>
    <message>
        <source>No backup on record</source>
        <translation>Kein Backup verzeichnet</translation>
    </message>
    <message>
        <source>Your files have never been backed up.</source>
        <translation>Ihre Dateien wurden noch nie gesichert.</translation>
    </message>
    <message>
        <source>Backup is current</source>
        <translation>Backup ist aktuell</translation>
    </message>
    <message>
        <source>Last backed up today.</source>
        <translation>Zuletzt heute gesichert.</translation>
    </message>
    <message>
        <source>Last backed up %1 day ago.</source>
        <translation>Zuletzt vor %1 Tag gesichert.</translation>
    </message>
    <message numerus="yes">
        <source>Last backed up %1 days ago.</source>
        <translation>
            <numerusform>Zuletzt vor %1 Tag gesichert.</numerusform>
            <numerusform>Zuletzt vor %1 Tagen gesichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Backup is recent</source>
        <translation>Backup ist recht neu</translation>
    </message>
    <message>
        <source>Backup overdue</source>
        <translation>Backup überfällig</translation>
    </message>
    <message numerus="yes">
        <source>Last backed up %n days ago. Consider backing up soon.</source>
        <translation>
            <numerusform>Zuletzt vor %n Tag gesichert. Ein Backup wäre bald gut.</numerusform>
            <numerusform>Zuletzt vor %n Tagen gesichert. Ein Backup wäre bald gut.</numerusform>
        </translation>
    </message>
    <message>
        <source>Disk is %1% full</source>
        <translation>Festplatte zu %1 % voll</translation>
    </message>
    <message>
        <source>%1 used of %2</source>
        <translation>%1 von %2 belegt</translation>
    </message>
</context>
<context>
    <name>HealthScore</name>
    <message>
        <source>Your Mac is in great shape.</source>
        <translation>Ihr Computer ist in bester Form.</translation>
    </message>
    <message>
        <source>Your Mac is in good shape.</source>
        <translation>Ihr Computer ist in guter Form.</translation>
    </message>
    <message>
        <source>Your Mac could use some attention.</source>
        <translation>Ihr Computer braucht etwas Pflege.</translation>
    </message>
    <message>
        <source>Your Mac needs a cleanup.</source>
        <translation>Aufräumen täte Ihrem Computer gut.</translation>
    </message>
    <message>
        <source>Your Mac needs immediate attention.</source>
        <translation>Ihr Computer braucht sofort Pflege.</translation>
    </message>
    <message>
        <source>No backup on record.</source>
        <translation>Kein Backup verzeichnet.</translation>
    </message>
    <message>
        <source>Backed up today.</source>
        <translation>Heute gesichert.</translation>
    </message>
    <message>
        <source>Backed up yesterday.</source>
        <translation>Gestern gesichert.</translation>
    </message>
    <message numerus="yes">
        <source>Last backup %1 days ago.</source>
        <translation>
            <numerusform>Letztes Backup vor %1 Tag.</numerusform>
            <numerusform>Letztes Backup vor %1 Tagen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>No backup in %n days — consider backing up soon.</source>
        <translation>
            <numerusform>Seit %n Tag kein Backup – bald sichern wäre gut.</numerusform>
            <numerusform>Seit %n Tagen kein Backup – bald sichern wäre gut.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of cached junk found.</source>
        <translation>%1 Datenmüll gefunden.</translation>
    </message>
    <message>
        <source>Disk is %1% full — freeing space is recommended.</source>
        <translation>Die Festplatte ist zu %1 % voll – es empfiehlt sich, Platz zu schaffen.</translation>
    </message>
</context>
<context>
    <name>Insights</name>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message numerus="yes">
        <source>%1 days ago</source>
        <translation>
            <numerusform>vor %1 Tag</numerusform>
            <numerusform>vor %1 Tagen</numerusform>
        </translation>
    </message>
    <message>
        <source>No cleanup recommended</source>
        <translation>Kein Aufräumen nötig</translation>
    </message>
    <message>
        <source>1 rarely used app found</source>
        <translation>1 selten benutzte App</translation>
    </message>
    <message numerus="yes">
        <source>%n rarely used apps found</source>
        <translation>
            <numerusform>%n selten benutzte App</numerusform>
            <numerusform>%n selten benutzte Apps</numerusform>
        </translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Wird gescannt …</translation>
    </message>
    <message>
        <source>%1 used</source>
        <translation>%1 belegt</translation>
    </message>
    <message>
        <source>of %1 total</source>
        <translation>von insgesamt %1</translation>
    </message>
    <message>
        <source>Last Backup</source>
        <translation>Letztes Backup</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Tap to view report</source>
        <translation>Bericht ansehen</translation>
    </message>
    <message>
        <source>No backup yet</source>
        <translation>Noch kein Backup</translation>
    </message>
    <message>
        <source>Junk</source>
        <translation>Datenmüll</translation>
    </message>
    <message>
        <source>cached files found</source>
        <translation>an Cache-Dateien gefunden</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Tap to analyse</source>
        <translation>Zum Auswerten klicken</translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n App</numerusform>
            <numerusform>%n Apps</numerusform>
        </translation>
    </message>
    <message>
        <source>Analysing usage…</source>
        <translation>Nutzung wird ausgewertet …</translation>
    </message>
</context>
<context>
    <name>JsonError</name>
    <message>
        <source>is not valid at byte %1: %2</source>
        <translation>ist bei Byte %1 nicht gültig: %2</translation>
    </message>
    <message>
        <source>is not an object</source>
        <translation>ist kein Objekt</translation>
    </message>
    <message>
        <source>The JSON text %1.</source>
        <translation>Der JSON-Text %1.</translation>
    </message>
    <message>
        <source>The value &quot;%1&quot; %2.</source>
        <translation>Der Wert „%1“ %2.</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>is not a text</source>
        <translation>ist kein Text</translation>
    </message>
    <message>
        <source>is not true or false</source>
        <translation>ist weder wahr noch falsch</translation>
    </message>
    <message>
        <source>is not a whole number of 64 bits</source>
        <translation>ist keine ganze Zahl von 64 Bit</translation>
    </message>
    <message>
        <source>is not a number</source>
        <translation>ist keine Zahl</translation>
    </message>
    <message>
        <source>is not a UUID</source>
        <translation>ist keine UUID</translation>
    </message>
    <message>
        <source>is not a file URL</source>
        <translation>ist keine Datei-URL</translation>
    </message>
    <message>
        <source>is not an ISO 8601 date</source>
        <translation>ist kein Datum nach ISO 8601</translation>
    </message>
    <message>
        <source>is not a list</source>
        <translation>ist keine Liste</translation>
    </message>
</context>
<context>
    <name>JunkScanner</name>
    <message>
        <source>User Caches</source>
        <translation>Benutzer-Caches</translation>
    </message>
    <message>
        <source>Log Files</source>
        <translation>Protokolldateien</translation>
    </message>
    <message>
        <source>Xcode &amp; Simulators</source>
        <translation>Entwicklerdaten</translation>
    </message>
    <message>
        <source>iOS Device Backups</source>
        <translation>iOS-Backups</translation>
    </message>
    <message>
        <source>Browser Caches</source>
        <translation>Browser-Caches</translation>
    </message>
    <message>
        <source>Trash</source>
        <translation>Papierkorb</translation>
    </message>
</context>
<context>
    <name>L10n::Dashboard</name>
    <message>
        <source>Dashboard</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Never Backed Up</source>
        <translation>Nie gesichert</translation>
    </message>
    <message>
        <source>Backing Up...</source>
        <translation>Backup läuft...</translation>
    </message>
    <message>
        <source>Backup Completed</source>
        <translation>Backup abgeschlossen</translation>
    </message>
    <message>
        <source>Attention Needed</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>Überfällig</translation>
    </message>
    <message>
        <source>No Destination</source>
        <translation>Kein Ziel</translation>
    </message>
    <message>
        <source>No Folders Selected</source>
        <translation>Keine Ordner ausgewählt</translation>
    </message>
    <message>
        <source>Ready to Back Up</source>
        <translation>Bereit zum Sichern</translation>
    </message>
    <message>
        <source>Next Backup</source>
        <translation>Nächstes Backup</translation>
    </message>
    <message>
        <source>Manual Only</source>
        <translation>Nur von Hand</translation>
    </message>
    <message>
        <source>Latest Backup</source>
        <translation>Neuestes Backup</translation>
    </message>
    <message>
        <source>Setup Destination</source>
        <translation>Ziel einrichten</translation>
    </message>
    <message>
        <source>Select Items</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Run Backup Now</source>
        <translation>Jetzt sichern</translation>
    </message>
</context>
<context>
    <name>L10n::Preflight</name>
    <message>
        <source>Preflight Check</source>
        <translation>Prüfung vor dem Backup</translation>
    </message>
    <message>
        <source>Analyzing selected folders...</source>
        <translation>Die gewählten Ordner werden untersucht...</translation>
    </message>
    <message>
        <source>Backup Estimate</source>
        <translation>Voraussichtlicher Umfang</translation>
    </message>
    <message>
        <source>Estimated Files:</source>
        <translation>Dateien (geschätzt):</translation>
    </message>
    <message>
        <source>Estimated Size:</source>
        <translation>Größe (geschätzt):</translation>
    </message>
    <message>
        <source>Destination Free Space:</source>
        <translation>Frei auf dem Ziel:</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Not enough free space on the destination drive.</source>
        <translation>Auf dem Ziellaufwerk ist nicht genug Platz.</translation>
    </message>
    <message>
        <source>Confirm &amp; Start</source>
        <translation>Bestätigen &amp; starten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Please resolve errors before continuing.</source>
        <translation>Bitte beheben Sie zuerst die Fehler.</translation>
    </message>
</context>
<context>
    <name>OrganizerVM</name>
    <message>
        <source>Desktop</source>
        <translation>Schreibtisch</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
</context>
<context>
    <name>PreflightService</name>
    <message>
        <source>No valid source folders selected.</source>
        <translation>Es sind keine gültigen Ordner ausgewählt.</translation>
    </message>
    <message>
        <source>No destination selected.</source>
        <translation>Es ist kein Ziel ausgewählt.</translation>
    </message>
    <message>
        <source>Destination folder does not exist or is not a directory.</source>
        <translation>Der Zielordner ist nicht vorhanden oder kein Ordner.</translation>
    </message>
    <message>
        <source>Destination folder is not writable.</source>
        <translation>In den Zielordner kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Could not determine free space on destination.</source>
        <translation>Der freie Platz auf dem Ziel ließ sich nicht ermitteln.</translation>
    </message>
    <message>
        <source>Source folder missing: %1</source>
        <translation>Ordner fehlt: %1</translation>
    </message>
    <message>
        <source>Source folder not readable: %1</source>
        <translation>Ordner nicht lesbar: %1</translation>
    </message>
    <message>
        <source>Dangerous system folder selected: %1</source>
        <translation>Gefährlicher Systemordner ausgewählt: %1</translation>
    </message>
    <message>
        <source>Destination is inside source folder %1, causing an infinite loop.</source>
        <translation>Das Ziel liegt im Ordner %1, der gesichert werden soll; das ergäbe eine Endlosschleife.</translation>
    </message>
    <message>
        <source>Source folder %1 is already inside the destination.</source>
        <translation>Der Ordner %1 liegt bereits im Ziel.</translation>
    </message>
    <message>
        <source>Not enough space. Required: ~%1, Available: %2.</source>
        <translation>Nicht genug Platz. Nötig: etwa %1, verfügbar: %2.</translation>
    </message>
</context>
<context>
    <name>RecommendedFolder</name>
    <message>
        <source>Desktop</source>
        <translation>Schreibtisch</translation>
    </message>
    <message>
        <source>Files saved directly to your desktop.</source>
        <translation>Dateien direkt auf Ihrem Schreibtisch.</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Your personal documents, PDFs, spreadsheets, and more.</source>
        <translation>Ihre Dokumente, PDFs, Tabellen und mehr.</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Images, screenshots, and photo exports.</source>
        <translation>Bilder, Bildschirmfotos und exportierte Fotos.</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Items downloaded from the web or received via AirDrop.</source>
        <translation>Aus dem Web geladen oder über AirDrop empfangen.</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filme</translation>
    </message>
    <message>
        <source>Video files and projects.</source>
        <translation>Videodateien und -projekte.</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Music files and media projects.</source>
        <translation>Musikdateien und Medienprojekte.</translation>
    </message>
    <message>
        <source>Photos Library</source>
        <translation>Fotomediathek</translation>
    </message>
    <message>
        <source>Your Photos library package. Can be large.</source>
        <translation>Ihre Fotomediathek. Kann groß sein.</translation>
    </message>
</context>
<context>
    <name>RemainingTime</name>
    <message>
        <source>About 1 minute left</source>
        <translation>Noch etwa 1 Minute</translation>
    </message>
    <message numerus="yes">
        <source>About %n minutes left</source>
        <translation>
            <numerusform>Noch etwa %n Minute</numerusform>
            <numerusform>Noch etwa %n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>About %1 hours left</source>
        <translation>Noch etwa %1 Stunden</translation>
    </message>
    <message>
        <source>About 1 hour left</source>
        <translation>Noch etwa 1 Stunde</translation>
    </message>
    <message numerus="yes">
        <source>About %n hours left</source>
        <translation>
            <numerusform>Noch etwa %n Stunde</numerusform>
            <numerusform>Noch etwa %n Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Less than a minute left</source>
        <translation>Noch weniger als eine Minute</translation>
    </message>
    <message numerus="yes">
        <source>About %n days left</source>
        <translation>
            <numerusform>Noch etwa %n Tag</numerusform>
            <numerusform>Noch etwa %n Tage</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ScanFinding</name>
    <message>
        <source>Junk</source>
        <translation>Datenmüll</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
</context>
<context>
    <name>Screen</name>
    <message>
        <source>Dashboard</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Protected Items</source>
        <translation>Geschützte Ordner</translation>
    </message>
    <message>
        <source>Preflight Check</source>
        <translation>Prüfung vor dem Backup</translation>
    </message>
    <message>
        <source>Backup Progress</source>
        <translation>Backup-Fortschritt</translation>
    </message>
    <message>
        <source>App Manager</source>
        <translation>App-Verwaltung</translation>
    </message>
    <message>
        <source>Junk Cleaner</source>
        <translation>Datenmüll</translation>
    </message>
    <message>
        <source>Storage Browser</source>
        <translation>Speicherbelegung</translation>
    </message>
    <message>
        <source>Smart Organizer</source>
        <translation>Dateien ordnen</translation>
    </message>
    <message>
        <source>Scan Results</source>
        <translation>Scan-Ergebnis</translation>
    </message>
    <message>
        <source>Activity Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Backup Report</source>
        <translation>Backup-Bericht</translation>
    </message>
    <message>
        <source>Restore Browser</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>New Mac Recovery</source>
        <translation>Neuer Computer</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>ScreenCommand</name>
    <message>
        <source>&amp;Full Scan</source>
        <translation>&amp;Vollständiger Scan</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Re-scan</source>
        <translation>&amp;Neu scannen</translation>
    </message>
</context>
<context>
    <name>SortOption</name>
    <message>
        <source>Cleanup Priority</source>
        <translation>Entbehrlichkeit</translation>
    </message>
    <message>
        <source>Last Used</source>
        <translation>Zuletzt benutzt</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Times Used</source>
        <translation>Häufigkeit</translation>
    </message>
</context>
<context>
    <name>StorageBrowserView</name>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Treemap</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Largest Files</source>
        <translation>Größte</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Choose a folder to inspect.</source>
        <translation>Wählen Sie einen Ordner zum Ansehen.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Ansehen</translation>
    </message>
</context>
<context>
    <name>StorageFileTypes</name>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>Archive</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>StorageNodeRow</name>
    <message>
        <source>Add to Backup Sources</source>
        <translation>Mitsichern</translation>
    </message>
    <message>
        <source>Organise this folder</source>
        <translation>Diesen Ordner ordnen</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb</translation>
    </message>
</context>
<context>
    <name>StoredTexts</name>
    <message>
        <source>Skip %1</source>
        <translation>Übersprungen: %1</translation>
    </message>
    <message>
        <source>Dir error %1</source>
        <translation>Ordnerfehler: %1</translation>
    </message>
    <message>
        <source>Cannot create %1</source>
        <translation>Anlegen nicht möglich: %1</translation>
    </message>
    <message>
        <source>Cannot enumerate: %1</source>
        <translation>Auflisten nicht möglich: %1</translation>
    </message>
    <message>
        <source>Manifest write failed: %1</source>
        <translation>Das Manifest wurde nicht geschrieben: %1</translation>
    </message>
    <message>
        <source>Report write failed: %1</source>
        <translation>Der Bericht wurde nicht geschrieben: %1</translation>
    </message>
    <message>
        <source>Could not create backup folders: %1</source>
        <translation>Die Backup-Ordner konnten nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Backup completed</source>
        <translation>Backup abgeschlossen</translation>
    </message>
    <message>
        <source>Backup completed with warnings</source>
        <translation>Backup mit Warnungen abgeschlossen</translation>
    </message>
    <message>
        <source>Junk files moved to Trash</source>
        <translation>Datenmüll in den Papierkorb gelegt</translation>
    </message>
    <message>
        <source>Files organised</source>
        <translation>Dateien geordnet</translation>
    </message>
    <message>
        <source>Files of %1 removed</source>
        <translation>Dateien von %1 entfernt</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>%1 entfernt</translation>
    </message>
    <message numerus="yes">
        <source>%1 files · %2</source>
        <translation>
            <numerusform>%1 Datei · %2</numerusform>
            <numerusform>%1 Dateien · %2</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 item across %2 categories</source>
        <translation>%1 Objekt · Kategorien: %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 items across %2 categories</source>
        <translation>
            <numerusform>%1 Objekt · Kategorien: %2</numerusform>
            <numerusform>%1 Objekte · Kategorien: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 file sorted into subfolders</source>
        <translation>%1 Datei in Unterordner sortiert</translation>
    </message>
    <message numerus="yes">
        <source>%1 files sorted into subfolders</source>
        <translation>
            <numerusform>%1 Datei in Unterordner sortiert</numerusform>
            <numerusform>%1 Dateien in Unterordner sortiert</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 file sorted into subfolders in %2</source>
        <translation>%1 Datei in %2 in Unterordner sortiert</translation>
    </message>
    <message numerus="yes">
        <source>%1 files sorted into subfolders in %2</source>
        <translation>
            <numerusform>%1 Datei in %2 in Unterordner sortiert</numerusform>
            <numerusform>%1 Dateien in %2 in Unterordner sortiert</numerusform>
        </translation>
    </message>
    <message>
        <source>App + %1 leftover file moved to Trash</source>
        <translation>App und %1 zugehörige Datei in den Papierkorb gelegt</translation>
    </message>
    <message numerus="yes">
        <source>App + %1 leftover files moved to Trash</source>
        <translation>
            <numerusform>App und %1 zugehörige Datei in den Papierkorb gelegt</numerusform>
            <numerusform>App und %1 zugehörige Dateien in den Papierkorb gelegt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 leftover file moved to Trash</source>
        <translation>%1 zugehörige Datei in den Papierkorb gelegt</translation>
    </message>
    <message numerus="yes">
        <source>%1 leftover files moved to Trash</source>
        <translation>
            <numerusform>%1 zugehörige Datei in den Papierkorb gelegt</numerusform>
            <numerusform>%1 zugehörige Dateien in den Papierkorb gelegt</numerusform>
        </translation>
    </message>
    <message>
        <source>App bundle moved to Trash</source>
        <translation>App in den Papierkorb gelegt</translation>
    </message>
</context>
<context>
    <name>UndoTexts</name>
    <message>
        <source>Nothing was put back.</source>
        <translation>Nichts wurde zurückgelegt.</translation>
    </message>
    <message>
        <source>1 item is back where it was.</source>
        <translation>1 Objekt ist wieder an seinem Ort.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are back where they were.</source>
        <translation>
            <numerusform>%Ln Objekt ist wieder an seinem Ort.</numerusform>
            <numerusform>%Ln Objekte sind wieder an ihrem Ort.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 item could not be put back.</source>
        <translation>1 Objekt konnte nicht zurückgelegt werden.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items could not be put back.</source>
        <translation>
            <numerusform>%Ln Objekt konnte nicht zurückgelegt werden.</numerusform>
            <numerusform>%Ln Objekte konnten nicht zurückgelegt werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Undo Organise</source>
        <translation>Ordnen rückgängig machen</translation>
    </message>
    <message>
        <source>Undo Move to Trash</source>
        <translation>Papierkorb rückgängig machen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>The undo was cancelled.</source>
        <translation>Das Rückgängigmachen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>1 item was not tried; undo once more to go on.</source>
        <translation>1 Objekt blieb unversucht; noch einmal rückgängig machen setzt fort.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items were not tried; undo once more to go on.</source>
        <translation>
            <numerusform>%Ln Objekt blieb unversucht; noch einmal rückgängig machen setzt fort.</numerusform>
            <numerusform>%Ln Objekte blieben unversucht; noch einmal rückgängig machen setzt fort.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UsageCategory</name>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Was Important</source>
        <translation>War wichtig</translation>
    </message>
    <message>
        <source>Occasional</source>
        <translation>Gelegentlich</translation>
    </message>
    <message>
        <source>Rarely Used</source>
        <translation>Selten benutzt</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Keel Bright</source>
        <translation>Willkommen bei Keel Bright</translation>
    </message>
    <message>
        <source>Select an item from the sidebar to get started.</source>
        <translation>Wählen Sie links in der Seitenleiste, womit Sie beginnen.</translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>About Keel Bright</source>
        <translation>Über Keel Bright</translation>
    </message>
    <message>
        <source>Keel Bright %1</source>
        <translation>Keel Bright %1</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later.

Built in: the font Material Design Icons (SIL Open Font License 1.1, its pictures CC BY 4.0). Used: Qt (GNU Lesser General Public License, version 3) and ICU (Unicode License).</source>
        <translation>Freie Software unter der GNU General Public License, Version 3 oder neuer.

Eingebaut: die Schrift Material Design Icons (SIL Open Font License 1.1, ihre Bilder CC BY 4.0). Verwendet: Qt (GNU Lesser General Public License, Version 3) und ICU (Unicode License).</translation>
    </message>
    <message>
        <source>&amp;Backup Now</source>
        <translation>&amp;Jetzt sichern</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Keel Bright</source>
        <translation>&amp;Über Keel Bright</translation>
    </message>
</context>
<context>
    <name>keelbright::ActivityLogModel</name>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
</context>
<context>
    <name>keelbright::ActivityLogView</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>No actions recorded</source>
        <translation>Keine Vorgänge verzeichnet</translation>
    </message>
    <message>
        <source>1 action · %1 freed total</source>
        <translation>1 Vorgang · %1 frei gemacht</translation>
    </message>
    <message numerus="yes">
        <source>%n actions · %1 freed total</source>
        <translation>
            <numerusform>%n Vorgang · %1 frei gemacht</numerusform>
            <numerusform>%n Vorgänge · %1 frei gemacht</numerusform>
        </translation>
    </message>
    <message>
        <source>Activity Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Export log as CSV</source>
        <translation>Protokoll als CSV exportieren</translation>
    </message>
    <message>
        <source>Clear activity log</source>
        <translation>Protokoll leeren</translation>
    </message>
    <message>
        <source>No activity yet</source>
        <translation>Noch keine Vorgänge</translation>
    </message>
    <message>
        <source>Actions from Backup, Junk Cleaner, Organizer, and App Manager will appear here.</source>
        <translation>Hier erscheinen Vorgänge aus Backup, Datenmüll, Dateien ordnen und App-Verwaltung.</translation>
    </message>
    <message>
        <source>No %1 entries</source>
        <translation>Keine Einträge zu „%1“</translation>
    </message>
</context>
<context>
    <name>keelbright::AppDetailPanel</name>
    <message>
        <source>v%1</source>
        <translation>v%1</translation>
    </message>
    <message>
        <source>Associated files (%1) will also be moved to Trash.</source>
        <translation>Zugehörige Dateien (%1) kommen ebenfalls in den Papierkorb.</translation>
    </message>
    <message>
        <source>Remove &quot;%1&quot;?</source>
        <translation>„%1“ entfernen?</translation>
    </message>
    <message>
        <source>Move App + Files to Trash</source>
        <translation>App und Dateien in den Papierkorb</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The app is installed for all users and stays.
Associated files (%1) can be moved to Trash.</source>
        <translation>Die App ist für alle Benutzer installiert und bleibt.
Zugehörige Dateien (%1) können in den Papierkorb gelegt werden.</translation>
    </message>
    <message>
        <source>The app belongs to a package. This command removes it: %1
Associated files (%2) can be moved to Trash.</source>
        <translation>Die App gehört zu einem Paket. Dieser Befehl entfernt sie: %1
Zugehörige Dateien (%2) können in den Papierkorb gelegt werden.</translation>
    </message>
    <message>
        <source>Move Files to Trash</source>
        <translation>Dateien in den Papierkorb</translation>
    </message>
    <message>
        <source>Move App Only to Trash</source>
        <translation>Nur App in den Papierkorb</translation>
    </message>
</context>
<context>
    <name>keelbright::AppListModel</name>
    <message>
        <source>Reveal in Finder</source>
        <translation>Dateimanager</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Entfernen …</translation>
    </message>
</context>
<context>
    <name>keelbright::AppListPanel</name>
    <message>
        <source>All Apps</source>
        <translation>Alle Apps</translation>
    </message>
    <message>
        <source>App Manager</source>
        <translation>App-Verwaltung</translation>
    </message>
    <message>
        <source>Sort apps</source>
        <translation>Apps sortieren</translation>
    </message>
    <message>
        <source>Re-scan apps</source>
        <translation>Apps neu einlesen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Clear filter</source>
        <translation>Filter aufheben</translation>
    </message>
    <message>
        <source>Scanning applications…</source>
        <translation>Apps werden eingelesen …</translation>
    </message>
    <message>
        <source>Reading Spotlight metadata</source>
        <translation>Nutzungsdaten werden gelesen</translation>
    </message>
    <message>
        <source>No apps scanned yet</source>
        <translation>Noch keine Apps eingelesen</translation>
    </message>
    <message>
        <source>Scan Now</source>
        <translation>Jetzt einlesen</translation>
    </message>
    <message>
        <source>Search apps</source>
        <translation>Apps suchen</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Apps</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n apps</source>
        <translation>
            <numerusform>%1 von %n App</numerusform>
            <numerusform>%1 von %n Apps</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>keelbright::AppManagerView</name>
    <message>
        <source>Select an app to see details</source>
        <translation>Wählen Sie eine App, um Einzelheiten zu sehen</translation>
    </message>
</context>
<context>
    <name>keelbright::AppState</name>
    <message>
        <source>No Destination Selected</source>
        <translation>Kein Ziel ausgewählt</translation>
    </message>
    <message>
        <source>Go to Settings and choose a backup destination first.</source>
        <translation>Wählen Sie zuerst in den Einstellungen ein Backup-Ziel.</translation>
    </message>
    <message>
        <source>Nothing to Back Up</source>
        <translation>Nichts zu sichern</translation>
    </message>
    <message>
        <source>Enable at least one folder in Protected Items.</source>
        <translation>Schalten Sie unter „Geschützte Ordner“ mindestens einen Ordner ein.</translation>
    </message>
    <message>
        <source>Copies Are Being Checked</source>
        <translation>Die Kopien werden geprüft</translation>
    </message>
    <message>
        <source>A backup can start when the check has ended or is cancelled.</source>
        <translation>Ein Backup kann beginnen, sobald die Prüfung beendet oder abgebrochen ist.</translation>
    </message>
    <message>
        <source>Backup completed with warnings</source>
        <translation>Backup mit Warnungen abgeschlossen</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were skipped. View the report for details.</source>
        <translation>
            <numerusform>%n Datei wurde übersprungen. Einzelheiten stehen im Bericht.</numerusform>
            <numerusform>%n Dateien wurden übersprungen. Einzelheiten stehen im Bericht.</numerusform>
        </translation>
    </message>
    <message>
        <source>Select folders to protect.</source>
        <translation>Wählen Sie die Ordner, die geschützt werden sollen.</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Select a folder or external drive to store your backups.</source>
        <translation>Wählen Sie einen Ordner oder ein externes Laufwerk für Ihre Backups.</translation>
    </message>
    <message>
        <source>Choose Backup Destination</source>
        <translation>Backup-Ziel wählen</translation>
    </message>
</context>
<context>
    <name>keelbright::AppStoreSection</name>
    <message>
        <source>About This App</source>
        <translation>Über diese App</translation>
    </message>
    <message>
        <source>Looking up on App Store…</source>
        <translation>Wird im App Store gesucht …</translation>
    </message>
    <message>
        <source>Not found on the Mac App Store.</source>
        <translation>Im App Store nicht gefunden.</translation>
    </message>
    <message>
        <source>Look Up on App Store</source>
        <translation>Im App Store suchen</translation>
    </message>
</context>
<context>
    <name>keelbright::AppUsageSection</name>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Nutzung</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Last Opened</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Times Opened</source>
        <translation>Geöffnet</translation>
    </message>
    <message>
        <source>Installed</source>
        <translation>Installiert</translation>
    </message>
</context>
<context>
    <name>keelbright::AwakeBackup</name>
    <message>
        <source>A backup is running</source>
        <translation>Ein Backup läuft</translation>
    </message>
</context>
<context>
    <name>keelbright::BackupEndNotice</name>
    <message>
        <source>Backup completed</source>
        <translation>Backup abgeschlossen</translation>
    </message>
    <message>
        <source>Backup completed with warnings</source>
        <translation>Backup mit Warnungen abgeschlossen</translation>
    </message>
    <message numerus="yes">
        <source>%n files · %1</source>
        <translation>
            <numerusform>%n Datei · %1</numerusform>
            <numerusform>%n Dateien · %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Backup could not start</source>
        <translation>Das Backup konnte nicht beginnen</translation>
    </message>
</context>
<context>
    <name>keelbright::BackupFinishedPanel</name>
    <message>
        <source>Backup Complete</source>
        <translation>Backup abgeschlossen</translation>
    </message>
    <message>
        <source>Backup Finished with Warnings</source>
        <translation>Backup mit Warnungen beendet</translation>
    </message>
    <message>
        <source>Files Copied</source>
        <translation>Kopierte Dateien</translation>
    </message>
    <message>
        <source>Data Copied</source>
        <translation>Kopierte Daten</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message>
        <source>Files backed up to:</source>
        <translation>Gesichert nach:</translation>
    </message>
    <message>
        <source>Open Personal Files in Finder</source>
        <translation>Gesicherte Dateien im Dateimanager öffnen</translation>
    </message>
    <message>
        <source>View Full Report</source>
        <translation>Ganzen Bericht ansehen</translation>
    </message>
    <message>
        <source>Back to Dashboard</source>
        <translation>Zur Übersicht</translation>
    </message>
</context>
<context>
    <name>keelbright::BackupProgressView</name>
    <message>
        <source>This backup was cancelled before everything was copied.</source>
        <translation>Dieses Backup wurde abgebrochen, bevor alles kopiert war.</translation>
    </message>
    <message>
        <source>Backup running</source>
        <translation>Backup läuft</translation>
    </message>
    <message>
        <source>No Backup Running</source>
        <translation>Kein Backup läuft</translation>
    </message>
    <message>
        <source>Hit &quot;Backup Now&quot; on the Dashboard to start.</source>
        <translation>Klicken Sie in der Übersicht auf „Jetzt sichern“, um zu beginnen.</translation>
    </message>
</context>
<context>
    <name>keelbright::BackupReportView</name>
    <message>
        <source>Files Copied</source>
        <translation>Kopierte Dateien</translation>
    </message>
    <message>
        <source>Data Copied</source>
        <translation>Kopierte Daten</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message>
        <source>Source Folders</source>
        <translation>Gesicherte Ordner</translation>
    </message>
    <message>
        <source>Skipped Files (%1)</source>
        <translation>Übersprungene Dateien (%1)</translation>
    </message>
    <message numerus="yes">
        <source>… and %n more. See full JSON report on disk.</source>
        <translation>
            <numerusform>… und %n weitere. Alles steht im JSON-Bericht auf dem Laufwerk.</numerusform>
            <numerusform>… und %n weitere. Alles steht im JSON-Bericht auf dem Laufwerk.</numerusform>
        </translation>
    </message>
    <message>
        <source>No Report Yet</source>
        <translation>Noch kein Bericht</translation>
    </message>
    <message>
        <source>Run a backup to generate a report.</source>
        <translation>Ein Backup erstellt einen Bericht.</translation>
    </message>
    <message>
        <source>Backup Report</source>
        <translation>Backup-Bericht</translation>
    </message>
    <message>
        <source>Open in Finder</source>
        <translation>Im Dateimanager öffnen</translation>
    </message>
    <message>
        <source>Backup Location</source>
        <translation>Ort des Backups</translation>
    </message>
    <message>
        <source>Personal Files</source>
        <translation>Persönliche Dateien</translation>
    </message>
    <message>
        <source>Backup Root</source>
        <translation>Backup-Ordner</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Recovery Manifest</source>
        <translation>Manifest</translation>
    </message>
</context>
<context>
    <name>keelbright::BackupRunningPanel</name>
    <message>
        <source>Backup progress</source>
        <translation>Fortschritt des Backups</translation>
    </message>
    <message>
        <source>Cancel Backup</source>
        <translation>Backup abbrechen</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Backing up to %1</source>
        <translation>Sicherung nach %1</translation>
    </message>
    <message>
        <source>Scanning files…</source>
        <translation>Dateien werden erfasst …</translation>
    </message>
</context>
<context>
    <name>keelbright::Banner</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
</context>
<context>
    <name>keelbright::BreadcrumbBar</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Folders above</source>
        <translation>Übergeordnete Ordner</translation>
    </message>
</context>
<context>
    <name>keelbright::CheckCopiesWindow</name>
    <message>
        <source>Check Copies</source>
        <translation>Kopien prüfen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Check running</source>
        <translation>Prüfung läuft</translation>
    </message>
</context>
<context>
    <name>keelbright::CheckFindingModel</name>
    <message>
        <source>Show in the file manager</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
</context>
<context>
    <name>keelbright::CheckResultPanel</name>
    <message>
        <source>Save Checksums…</source>
        <translation>Prüfsummen speichern …</translation>
    </message>
    <message>
        <source>Equal</source>
        <translation>Gleich</translation>
    </message>
    <message>
        <source>Different</source>
        <translation>Verschieden</translation>
    </message>
    <message>
        <source>Unreadable</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>Written Since</source>
        <translation>Seitdem geschrieben</translation>
    </message>
    <message>
        <source>Not in the List</source>
        <translation>Nicht in der Liste</translation>
    </message>
    <message>
        <source>Changed Since</source>
        <translation>Seitdem geändert</translation>
    </message>
    <message>
        <source>Only on the Drive</source>
        <translation>Nur auf dem Laufwerk</translation>
    </message>
    <message>
        <source>Not Backed Up Yet</source>
        <translation>Noch nicht gesichert</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Copy the list</source>
        <translation>Liste kopieren</translation>
    </message>
    <message>
        <source>Check Again…</source>
        <translation>Erneut prüfen …</translation>
    </message>
</context>
<context>
    <name>keelbright::CheckRunningPanel</name>
    <message>
        <source>Counting the copies…</source>
        <translation>Die Kopien werden gezählt …</translation>
    </message>
    <message>
        <source>Looking for files that are not backed up yet…</source>
        <translation>Noch nicht gesicherte Dateien werden gesucht …</translation>
    </message>
    <message>
        <source>Check progress</source>
        <translation>Fortschritt der Prüfung</translation>
    </message>
    <message>
        <source>Cancel Check</source>
        <translation>Prüfung abbrechen</translation>
    </message>
    <message>
        <source>Checked</source>
        <translation>Geprüft</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Checking the copies</source>
        <translation>Die Kopien werden geprüft</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/s</translation>
    </message>
</context>
<context>
    <name>keelbright::CheckStartPanel</name>
    <message>
        <source>Start Check</source>
        <translation>Prüfung starten</translation>
    </message>
    <message>
        <source>Use a List of Checksums…</source>
        <translation>Liste mit Prüfsummen verwenden …</translation>
    </message>
    <message>
        <source>Check Copies</source>
        <translation>Kopien prüfen</translation>
    </message>
    <message>
        <source>Where the originals are gone, a list of checksums that was saved after an earlier check takes their place.</source>
        <translation>Wo die Originale fehlen, tritt eine Liste mit Prüfsummen an ihre Stelle, die nach einer früheren Prüfung gespeichert wurde.</translation>
    </message>
    <message>
        <source>Reads every copy back from the backup drive and compares it with its original. Nothing is changed.</source>
        <translation>Liest jede Kopie vom Backup-Laufwerk zurück und vergleicht sie mit ihrem Original. Nichts wird verändert.</translation>
    </message>
    <message>
        <source>Reads every copy back from %1 and compares it with its original. Nothing is changed.</source>
        <translation>Liest jede Kopie von %1 zurück und vergleicht sie mit ihrem Original. Nichts wird verändert.</translation>
    </message>
</context>
<context>
    <name>keelbright::CopyCheckVM</name>
    <message>
        <source>A backup is running. The copies can be checked when it has ended.</source>
        <translation>Ein Backup läuft. Die Kopien können geprüft werden, wenn es beendet ist.</translation>
    </message>
    <message>
        <source>%1 is not connected.</source>
        <translation>%1 ist nicht verbunden.</translation>
    </message>
    <message>
        <source>Choose a backup destination in Settings first.</source>
        <translation>Wählen Sie zuerst in den Einstellungen ein Backup-Ziel.</translation>
    </message>
    <message>
        <source>Choose the list of checksums to compare the copies with.</source>
        <translation>Wählen Sie die Liste mit den Prüfsummen, mit der die Kopien verglichen werden.</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Save Checksums</source>
        <translation>Prüfsummen speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>The checksums are saved as %1.</source>
        <translation>Die Prüfsummen sind als %1 gespeichert.</translation>
    </message>
</context>
<context>
    <name>keelbright::DashboardView</name>
    <message>
        <source>Good morning.</source>
        <translation>Guten Morgen.</translation>
    </message>
    <message>
        <source>Good afternoon.</source>
        <translation>Guten Tag.</translation>
    </message>
    <message>
        <source>Good evening.</source>
        <translation>Guten Abend.</translation>
    </message>
    <message>
        <source>Working late?</source>
        <translation>Noch spät am Werk?</translation>
    </message>
    <message>
        <source>Here&apos;s how your Mac is doing.</source>
        <translation>So geht es Ihrem Computer.</translation>
    </message>
    <message>
        <source>Quick Clean</source>
        <translation>Schnell aufräumen</translation>
    </message>
    <message>
        <source>Clean safe junk items with one tap</source>
        <translation>Unbedenklichen Datenmüll mit einem Klick entfernen</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>Cancel Backup</source>
        <translation>Backup abbrechen</translation>
    </message>
    <message>
        <source>Backup Now</source>
        <translation>Jetzt sichern</translation>
    </message>
</context>
<context>
    <name>keelbright::DesktopNotifier</name>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
</context>
<context>
    <name>keelbright::DetailView</name>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
</context>
<context>
    <name>keelbright::EditCommands</name>
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
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
</context>
<context>
    <name>keelbright::FileProposalModel</name>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
</context>
<context>
    <name>keelbright::GroupItemsPanel</name>
    <message>
        <source>Select a category</source>
        <translation>Wählen Sie eine Kategorie</translation>
    </message>
</context>
<context>
    <name>keelbright::HealthCard</name>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Junk</source>
        <translation>Datenmüll</translation>
    </message>
    <message>
        <source>Calculating the health score</source>
        <translation>Der Zustand wird berechnet</translation>
    </message>
    <message>
        <source>Health score</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Recalculate health score</source>
        <translation>Zustand neu berechnen</translation>
    </message>
    <message>
        <source>%1  %2/%3</source>
        <translation>%1  %2/%3</translation>
    </message>
    <message>
        <source>Health score %1, %2. %3</source>
        <translation>Zustand %1, %2. %3</translation>
    </message>
</context>
<context>
    <name>keelbright::InsightCard</name>
    <message>
        <source>%1: %2, %3</source>
        <translation>%1: %2, %3</translation>
    </message>
</context>
<context>
    <name>keelbright::JunkCategoryModel</name>
    <message>
        <source>1 item</source>
        <translation>1 Objekt</translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n Objekt</numerusform>
            <numerusform>%n Objekte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>keelbright::JunkCategoryPanel</name>
    <message>
        <source>Junk Cleaner</source>
        <translation>Datenmüll</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Wird gescannt …</translation>
    </message>
    <message>
        <source>All clean!</source>
        <translation>Alles sauber!</translation>
    </message>
    <message>
        <source>No junk found.</source>
        <translation>Kein Datenmüll gefunden.</translation>
    </message>
    <message>
        <source>Junk categories</source>
        <translation>Kategorien</translation>
    </message>
</context>
<context>
    <name>keelbright::JunkCleanerView</name>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Re-scan</source>
        <translation>Neu scannen</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
    <message>
        <source>1 item selected</source>
        <translation>1 Objekt ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%n items selected</source>
        <translation>
            <numerusform>%n Objekt ausgewählt</numerusform>
            <numerusform>%n Objekte ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Deselect All</source>
        <translation>Alle abwählen</translation>
    </message>
    <message>
        <source>Move 1 item to Trash?</source>
        <translation>1 Objekt in den Papierkorb legen?</translation>
    </message>
    <message numerus="yes">
        <source>Move %n items to Trash?</source>
        <translation>
            <numerusform>%n Objekt in den Papierkorb legen?</numerusform>
            <numerusform>%n Objekte in den Papierkorb legen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Selected junk (%1) will be moved to Trash. Nothing is permanently deleted — you can restore from Trash if needed.</source>
        <translation>Der ausgewählte Datenmüll (%1) kommt in den Papierkorb. Nichts wird endgültig gelöscht – Sie können es bei Bedarf von dort zurückholen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n items moved to Trash</source>
        <translation>
            <numerusform>%1 von %n Objekt in den Papierkorb gelegt</numerusform>
            <numerusform>%1 von %n Objekten in den Papierkorb gelegt</numerusform>
        </translation>
    </message>
    <message>
        <source>1 item moved to Trash</source>
        <translation>1 Objekt in den Papierkorb gelegt</translation>
    </message>
    <message numerus="yes">
        <source>%n items moved to Trash</source>
        <translation>
            <numerusform>%n Objekt in den Papierkorb gelegt</numerusform>
            <numerusform>%n Objekte in den Papierkorb gelegt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>keelbright::JunkItemModel</name>
    <message>
        <source>%1 is running and uses this cache.</source>
        <translation>%1 läuft und benutzt diesen Cache.</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
</context>
<context>
    <name>keelbright::JunkItemPanel</name>
    <message>
        <source>Click a category on the left to review its items.</source>
        <translation>Klicken Sie links auf eine Kategorie, um ihre Objekte zu sehen.</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Junk items</source>
        <translation>Objekte</translation>
    </message>
    <message numerus="yes">
        <source>%n items · %1 total</source>
        <translation>
            <numerusform>%n Objekt · %1</numerusform>
            <numerusform>%n Objekte · %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Deselect All</source>
        <translation>Alle abwählen</translation>
    </message>
</context>
<context>
    <name>keelbright::LargeFileModel</name>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb</translation>
    </message>
</context>
<context>
    <name>keelbright::LargestFilesPanel</name>
    <message>
        <source>Scanning for large files…</source>
        <translation>Große Dateien werden gesucht …</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Largest files</source>
        <translation>Größte Dateien</translation>
    </message>
    <message>
        <source>No files found.</source>
        <translation>Keine Dateien gefunden.</translation>
    </message>
    <message numerus="yes">
        <source>Top %n largest files in %1</source>
        <translation>
            <numerusform>Die größte Datei in %1</numerusform>
            <numerusform>Die %n größten Dateien in %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>keelbright::LeftoverListModel</name>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
</context>
<context>
    <name>keelbright::LeftoversSection</name>
    <message>
        <source>Associated Files</source>
        <translation>Zugehörige Dateien</translation>
    </message>
    <message>
        <source>Scanning for leftover files…</source>
        <translation>Zugehörige Dateien werden gesucht …</translation>
    </message>
    <message>
        <source>No leftover files found.</source>
        <translation>Keine zugehörigen Dateien gefunden.</translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation>Insgesamt: %1</translation>
    </message>
</context>
<context>
    <name>keelbright::LevelPanel</name>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
</context>
<context>
    <name>keelbright::MainWindow</name>
    <message>
        <source>Keel Bright</source>
        <translation>Keel Bright</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Check &amp;Copies…</source>
        <translation>&amp;Kopien prüfen …</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Hide Sidebar</source>
        <translation>Seitenleiste ausblenden</translation>
    </message>
    <message>
        <source>Show Backup Progress</source>
        <translation>Backup-Fortschritt zeigen</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation>&amp;Minimieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Show Sidebar</source>
        <translation>Seitenleiste einblenden</translation>
    </message>
    <message>
        <source>Stop the backup?</source>
        <translation>Das Backup beenden?</translation>
    </message>
    <message>
        <source>A backup is running. If you stop now, everything copied so far stays on the destination, and the rest is copied the next time.</source>
        <translation>Ein Backup läuft. Wenn Sie es jetzt beenden, bleibt alles bisher Kopierte auf dem Ziel, und der Rest wird beim nächsten Mal kopiert.</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Keep going</source>
        <translation>Weiter sichern</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
</context>
<context>
    <name>keelbright::ManifestSummary</name>
    <message>
        <source>%1, present</source>
        <translation>%1, vorhanden</translation>
    </message>
    <message>
        <source>%1, not present</source>
        <translation>%1, nicht vorhanden</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>macOS</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation>Gesichert</translation>
    </message>
    <message>
        <source>Shell</source>
        <translation>Shell</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Dotfiles</source>
        <translation>Dotfiles</translation>
    </message>
    <message>
        <source>Apps on previous Mac (%1)</source>
        <translation>Apps auf dem bisherigen Computer (%1)</translation>
    </message>
</context>
<context>
    <name>keelbright::NewMacRecoveryVM</name>
    <message>
        <source>Select the recovery-manifest.json from your backup.</source>
        <translation>Wählen Sie die Datei recovery-manifest.json aus Ihrem Backup.</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Could not read manifest: %1</source>
        <translation>Das Manifest ist nicht lesbar: %1</translation>
    </message>
</context>
<context>
    <name>keelbright::NewMacRecoveryView</name>
    <message>
        <source>Restore personal files</source>
        <translation>Persönliche Dateien zurückholen</translation>
    </message>
    <message>
        <source>Open your backup drive and copy Personal Files back to your new Mac manually, or use the Restore Browser.</source>
        <translation>Öffnen Sie Ihr Backup-Laufwerk und kopieren Sie „Personal Files“ von Hand auf Ihren neuen Computer, oder verwenden Sie die Wiederherstellung.</translation>
    </message>
    <message>
        <source>Rebuild your app environment</source>
        <translation>Apps wieder einrichten</translation>
    </message>
    <message>
        <source>Use the recovery manifest to see which apps were installed. Reinstall via Mac App Store, Homebrew, or direct download. Keel Bright does not restore app binaries.</source>
        <translation>Im Manifest sehen Sie, welche Apps installiert waren. Installieren Sie sie neu aus dem App Store, mit Homebrew oder durch direktes Herunterladen. Keel Bright stellt keine Apps wieder her.</translation>
    </message>
    <message>
        <source>Review your setup checklist</source>
        <translation>Einrichtung durchgehen</translation>
    </message>
    <message>
        <source>The manifest includes dotfile presence and shell info. Re-apply .zshrc, .gitconfig, and SSH keys from your backup.</source>
        <translation>Das Manifest nennt vorhandene Dotfiles und die Shell. Übernehmen Sie .zshrc, .gitconfig und SSH-Schlüssel aus Ihrem Backup.</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>Schritt %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Setting Up a New Mac</source>
        <translation>Einen neuen Computer einrichten</translation>
    </message>
    <message>
        <source>Keel Bright helps you pick up where you left off. Follow these steps after your first login on a new Mac.</source>
        <translation>Keel Bright hilft Ihnen, dort weiterzumachen, wo Sie aufgehört haben. Folgen Sie diesen Schritten nach der ersten Anmeldung auf einem neuen Computer.</translation>
    </message>
    <message>
        <source>Recovery Manifest</source>
        <translation>Manifest</translation>
    </message>
    <message>
        <source>Load your recovery-manifest.json to review what was on your previous Mac.</source>
        <translation>Laden Sie Ihre Datei recovery-manifest.json, um zu sehen, was auf Ihrem bisherigen Computer war.</translation>
    </message>
    <message>
        <source>Load Manifest…</source>
        <translation>Manifest laden …</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Summary from your previous Mac</source>
        <translation>Zusammenfassung Ihres bisherigen Computers</translation>
    </message>
</context>
<context>
    <name>keelbright::NumberStrip</name>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>keelbright::OnboardingView</name>
    <message>
        <source>Personal files</source>
        <translation>Persönliche Dateien</translation>
    </message>
    <message>
        <source>Desktop, Documents, Pictures — copied cleanly to your backup drive.</source>
        <translation>Schreibtisch, Dokumente, Bilder – sauber auf Ihr Backup-Laufwerk kopiert.</translation>
    </message>
    <message>
        <source>Developer setup metadata</source>
        <translation>Angaben zu Ihrer Einrichtung</translation>
    </message>
    <message>
        <source>Dotfile presence, shell info, and installed app names saved in a recovery manifest.</source>
        <translation>Vorhandene Dotfiles, die Shell und die Namen installierter Apps, gespeichert in einem Manifest.</translation>
    </message>
    <message>
        <source>Storage browser</source>
        <translation>Speicherbelegung</translation>
    </message>
    <message>
        <source>See exactly what&apos;s taking up space in your backup, folder by folder.</source>
        <translation>Sehen Sie Ordner für Ordner genau, was in Ihrem Backup Platz belegt.</translation>
    </message>
    <message>
        <source>Keel Bright</source>
        <translation>Keel Bright</translation>
    </message>
    <message>
        <source>A calm, minimal backup for your personal Mac environment.</source>
        <translation>Ein ruhiges, schlichtes Backup für Ihren persönlichen Computer.</translation>
    </message>
    <message>
        <source>Choose a Backup Destination</source>
        <translation>Wählen Sie ein Backup-Ziel</translation>
    </message>
    <message>
        <source>Select an external drive or a local folder. Keel Bright will create a readable folder structure inside.</source>
        <translation>Wählen Sie ein externes Laufwerk oder einen Ordner. Keel Bright legt darin lesbare Ordner an.</translation>
    </message>
    <message>
        <source>You can change this later in Settings.</source>
        <translation>Das können Sie später in den Einstellungen ändern.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Get Started</source>
        <translation>Loslegen</translation>
    </message>
    <message>
        <source>Choose Destination…</source>
        <translation>Ziel wählen …</translation>
    </message>
    <message>
        <source>Backup destination, press to choose another</source>
        <translation>Backup-Ziel, zum Ändern drücken</translation>
    </message>
</context>
<context>
    <name>keelbright::OpenFileDialog</name>
    <message>
        <source>%1 files</source>
        <translation>Dateien %1</translation>
    </message>
    <message>
        <source>%1 is not one of the files that can be chosen here: %2.</source>
        <translation>%1 gehört nicht zu den Dateien, die hier gewählt werden können: %2.</translation>
    </message>
</context>
<context>
    <name>keelbright::OrganizerPlanPanel</name>
    <message>
        <source>Smart Organizer</source>
        <translation>Dateien ordnen</translation>
    </message>
    <message>
        <source>QUICK TARGETS</source>
        <translation>SCHNELLZIELE</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner wählen …</translation>
    </message>
    <message>
        <source>Pick a folder above</source>
        <translation>Wählen Sie oben einen Ordner</translation>
    </message>
    <message>
        <source>Analysing…</source>
        <translation>Wird untersucht …</translation>
    </message>
    <message>
        <source>Already organised!</source>
        <translation>Schon geordnet!</translation>
    </message>
    <message>
        <source>No loose files found.</source>
        <translation>Keine losen Dateien gefunden.</translation>
    </message>
    <message>
        <source>File categories</source>
        <translation>Dateikategorien</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Organise Now</source>
        <translation>Jetzt ordnen</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
    <message>
        <source>1 file selected</source>
        <translation>1 Datei ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%n files selected</source>
        <translation>
            <numerusform>%n Datei ausgewählt</numerusform>
            <numerusform>%n Dateien ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Deselect All</source>
        <translation>Alle abwählen</translation>
    </message>
</context>
<context>
    <name>keelbright::OrganizerVM</name>
    <message>
        <source>Select a folder to organise.</source>
        <translation>Wählen Sie einen Ordner zum Ordnen.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Wählen</translation>
    </message>
</context>
<context>
    <name>keelbright::OrganizerView</name>
    <message>
        <source>Move 1 file into subfolders?</source>
        <translation>1 Datei in Unterordner verschieben?</translation>
    </message>
    <message numerus="yes">
        <source>Move %n files into subfolders?</source>
        <translation>
            <numerusform>%n Datei in Unterordner verschieben?</numerusform>
            <numerusform>%n Dateien in Unterordner verschieben?</numerusform>
        </translation>
    </message>
    <message>
        <source>Files will be moved into named subfolders inside &quot;%1&quot;. This can be undone in Finder (⌘Z).</source>
        <translation>Die Dateien kommen in benannte Unterordner von „%1“. Das lässt sich rückgängig machen (Strg+Z).</translation>
    </message>
    <message>
        <source>the folder</source>
        <translation>dem Ordner</translation>
    </message>
    <message>
        <source>Organise</source>
        <translation>Ordnen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>keelbright::PathRow</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>keelbright::PreflightSummaryView</name>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>keelbright::ProgressPanel</name>
    <message>
        <source>Backup progress</source>
        <translation>Fortschritt des Backups</translation>
    </message>
    <message>
        <source>Backing Up…</source>
        <translation>Backup läuft …</translation>
    </message>
    <message>
        <source>Show Backup Progress</source>
        <translation>Backup-Fortschritt zeigen</translation>
    </message>
    <message>
        <source>%1 copied</source>
        <translation>%1 kopiert</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 übersprungen</translation>
    </message>
</context>
<context>
    <name>keelbright::ProposalModel</name>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>keelbright::ProposalPanel</name>
    <message>
        <source>Click a category on the left to preview which files will be moved.</source>
        <translation>Klicken Sie links auf eine Kategorie, um zu sehen, welche Dateien verschoben werden.</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message numerus="yes">
        <source>%n files · %1</source>
        <translation>
            <numerusform>%n Datei · %1</numerusform>
            <numerusform>%n Dateien · %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation>Abwählen</translation>
    </message>
</context>
<context>
    <name>keelbright::ProtectedFoldersCard</name>
    <message numerus="yes">
        <source>+ %n more folders</source>
        <translation>
            <numerusform>+ %n weiterer Ordner</numerusform>
            <numerusform>+ %n weitere Ordner</numerusform>
        </translation>
    </message>
    <message>
        <source>Protected Folders</source>
        <translation>Geschützte Ordner</translation>
    </message>
    <message>
        <source>Manage</source>
        <translation>Verwalten</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Choose another backup destination</source>
        <translation>Ein anderes Backup-Ziel wählen</translation>
    </message>
    <message>
        <source>View Report</source>
        <translation>Bericht ansehen</translation>
    </message>
    <message>
        <source>Last backup completed successfully</source>
        <translation>Letztes Backup erfolgreich</translation>
    </message>
    <message>
        <source>Last backup had warnings</source>
        <translation>Letztes Backup mit Warnungen</translation>
    </message>
    <message numerus="yes">
        <source>%n files · %1</source>
        <translation>
            <numerusform>%n Datei · %1</numerusform>
            <numerusform>%n Dateien · %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
</context>
<context>
    <name>keelbright::ProtectedItemsView</name>
    <message>
        <source>Application binaries</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>The actual .app bundles in /Applications are not copied. Use Mac App Store or Homebrew to reinstall.</source>
        <translation>Die .app-Pakete in /Applications werden nicht kopiert. Installieren Sie sie aus dem App Store oder mit Homebrew neu.</translation>
    </message>
    <message>
        <source>macOS system files</source>
        <translation>Systemdateien</translation>
    </message>
    <message>
        <source>No system libraries, frameworks, or OS-level data.</source>
        <translation>Keine Bibliotheken, Frameworks oder Daten des Betriebssystems.</translation>
    </message>
    <message>
        <source>node_modules, .git, build folders</source>
        <translation>node_modules, .git, Build-Ordner</translation>
    </message>
    <message>
        <source>Auto-generated and reproducible — excluded to keep backups fast and lean.</source>
        <translation>Automatisch erzeugt und wiederherstellbar – ausgelassen, damit Backups schnell und schlank bleiben.</translation>
    </message>
    <message>
        <source>.dmg, .pkg, .iso, .tmp files</source>
        <translation>Dateien .dmg, .pkg, .iso, .tmp</translation>
    </message>
    <message>
        <source>Installers and temp files are skipped automatically.</source>
        <translation>Installationsdateien und temporäre Dateien werden übersprungen.</translation>
    </message>
    <message>
        <source>Hidden and inaccessible files</source>
        <translation>Versteckte und unzugängliche Dateien</translation>
    </message>
    <message>
        <source>Files without read permission or behind SIP are skipped safely.</source>
        <translation>Dateien ohne Leserecht oder unter Systemschutz werden sicher übersprungen.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Choose What to Protect</source>
        <translation>Wählen Sie, was geschützt wird</translation>
    </message>
    <message>
        <source>Keel Bright recommends common folders below. You can also add your own custom folders.</source>
        <translation>Unten stehen die Ordner, die Keel Bright empfiehlt. Sie können eigene Ordner hinzufügen.</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Recommended Folders</source>
        <translation>Empfohlene Ordner</translation>
    </message>
    <message>
        <source>Custom Folders</source>
        <translation>Eigene Ordner</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>No custom folders yet. Click &quot;Add Folder&quot; to include any folder from your Mac.</source>
        <translation>Noch keine eigenen Ordner. Klicken Sie auf „Ordner hinzufügen“, um einen Ordner Ihres Computers aufzunehmen.</translation>
    </message>
    <message>
        <source>What Keel Bright does not back up</source>
        <translation>Was Keel Bright nicht sichert</translation>
    </message>
    <message>
        <source>This will re-enable Desktop, Documents, and Pictures, and remove any custom folders.</source>
        <translation>Schreibtisch, Dokumente und Bilder werden wieder eingeschaltet, alle eigenen Ordner entfernt.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>keelbright::RecommendedFolderRow</name>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>keelbright::RestoreBrowserVM</name>
    <message>
        <source>Navigate to your Keelbright/DeviceName folder on your backup drive.</source>
        <translation>Öffnen Sie auf Ihrem Backup-Laufwerk den Ordner Keelbright/Gerätename.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>keelbright::RestoreBrowserView</name>
    <message>
        <source>Restore Browser</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>Browse snapshots from a Keel Bright backup to find your personal files.</source>
        <translation>Finden Sie Ihre persönlichen Dateien in den Ständen eines Backups von Keel Bright.</translation>
    </message>
    <message>
        <source>Open Backup Folder</source>
        <translation>Backup-Ordner öffnen</translation>
    </message>
    <message>
        <source>No Backup Folder Opened</source>
        <translation>Kein Backup-Ordner geöffnet</translation>
    </message>
    <message>
        <source>Click &quot;Open Backup Folder&quot; and navigate to your Keelbright/DeviceName folder on your backup drive.</source>
        <translation>Klicken Sie auf „Backup-Ordner öffnen“ und wählen Sie auf Ihrem Backup-Laufwerk den Ordner Keelbright/Gerätename.</translation>
    </message>
    <message>
        <source>Latest Backup</source>
        <translation>Neuestes Backup</translation>
    </message>
    <message>
        <source>Latest/</source>
        <translation>Latest/</translation>
    </message>
    <message>
        <source>Open in Finder</source>
        <translation>Im Dateimanager öffnen</translation>
    </message>
    <message>
        <source>Snapshots</source>
        <translation>Stände</translation>
    </message>
    <message>
        <source>No Snapshots Found</source>
        <translation>Keine Stände gefunden</translation>
    </message>
    <message>
        <source>This folder doesn&apos;t appear to contain Keel Bright snapshots.</source>
        <translation>Dieser Ordner scheint keine Stände von Keel Bright zu enthalten.</translation>
    </message>
    <message>
        <source>Snapshots (%1)</source>
        <translation>Stände (%1)</translation>
    </message>
</context>
<context>
    <name>keelbright::RowWidget</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>keelbright::RunningPanel</name>
    <message>
        <source>Cancelling...</source>
        <translation>Wird abgebrochen...</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>fertig</translation>
    </message>
</context>
<context>
    <name>keelbright::SaveFileDialog</name>
    <message>
        <source>There is no folder %1.</source>
        <translation>Den Ordner %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>Replace %1?</source>
        <translation>%1 ersetzen?</translation>
    </message>
    <message>
        <source>A file of this name is there already. What it holds now will be lost.</source>
        <translation>Eine Datei dieses Namens ist schon da. Ihr jetziger Inhalt geht verloren.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>keelbright::ScanFindingsModel</name>
    <message>
        <source>low severity</source>
        <translation>geringe Bedeutung</translation>
    </message>
    <message>
        <source>medium severity</source>
        <translation>mittlere Bedeutung</translation>
    </message>
    <message>
        <source>high severity</source>
        <translation>hohe Bedeutung</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>Beheben</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>keelbright::ScanReportPanel</name>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Everything looks good</source>
        <translation>Alles sieht gut aus</translation>
    </message>
    <message>
        <source>1 issue need attention</source>
        <translation>1 Punkt braucht Aufmerksamkeit</translation>
    </message>
    <message numerus="yes">
        <source>%n issues need attention</source>
        <translation>
            <numerusform>%n Punkt braucht Aufmerksamkeit</numerusform>
            <numerusform>%n Punkte brauchen Aufmerksamkeit</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n findings · %1 reclaimable</source>
        <translation>
            <numerusform>%n Befund · %1 frei zu machen</numerusform>
            <numerusform>%n Befunde · %1 frei zu machen</numerusform>
        </translation>
    </message>
    <message>
        <source>You can free up %1 of storage.</source>
        <translation>Sie können %1 Speicher frei machen.</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>keelbright::ScanResultsView</name>
    <message>
        <source>Scan Results</source>
        <translation>Scan-Ergebnis</translation>
    </message>
    <message>
        <source>Full Scan</source>
        <translation>Vollständiger Scan</translation>
    </message>
    <message>
        <source>Scanning your Mac…</source>
        <translation>Ihr Computer wird gescannt …</translation>
    </message>
    <message>
        <source>Checking junk files, apps, storage, and backup health.</source>
        <translation>Datenmüll, Apps, Speicher und Backups werden geprüft.</translation>
    </message>
    <message>
        <source>Ready to scan</source>
        <translation>Bereit zum Scannen</translation>
    </message>
    <message>
        <source>Tap Full Scan to check junk files, unused apps, storage pressure, and backup status all at once.</source>
        <translation>Klicken Sie auf „Vollständiger Scan“, um Datenmüll, ungenutzte Apps, Speicher und Backups auf einmal zu prüfen.</translation>
    </message>
    <message>
        <source>Start Full Scan</source>
        <translation>Vollständigen Scan starten</translation>
    </message>
    <message>
        <source>Last scanned %1</source>
        <translation>Zuletzt gescannt: %1</translation>
    </message>
    <message>
        <source>Run a full scan to see what can be cleaned up.</source>
        <translation>Ein vollständiger Scan zeigt, was aufgeräumt werden kann.</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Wird gescannt …</translation>
    </message>
</context>
<context>
    <name>keelbright::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>keelbright::SelectionSummary</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>keelbright::SettingsView</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Backup Destination</source>
        <translation>Backup-Ziel</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Choose where backups go</source>
        <translation>Wählen Sie, wohin gesichert wird</translation>
    </message>
    <message>
        <source>Choose an external drive or a local folder. Keel Bright creates a structured Keelbright/ folder inside.

Cloud Backup: You can choose a local folder synced by iCloud Drive, Dropbox, OneDrive, or Google Drive. Keel Bright completes the local backup; the cloud upload is handled by your sync provider.</source>
        <translation>Wählen Sie ein externes Laufwerk oder einen Ordner. Keel Bright legt darin den Ordner Keelbright/ an.

Cloud-Backup: Sie können einen Ordner wählen, den iCloud Drive, Dropbox, OneDrive oder Google Drive abgleicht. Keel Bright erstellt das Backup auf diesem Computer, das Hochladen übernimmt Ihr Anbieter.</translation>
    </message>
    <message>
        <source>Protected Folders</source>
        <translation>Geschützte Ordner</translation>
    </message>
    <message>
        <source>Add Custom Folder…</source>
        <translation>Eigenen Ordner hinzufügen …</translation>
    </message>
    <message>
        <source>Manage recommended and custom folders in Protected Items. Application binaries are not included.</source>
        <translation>Empfohlene und eigene Ordner verwalten Sie unter „Geschützte Ordner“. Programme gehören nicht dazu.</translation>
    </message>
    <message>
        <source>About Keel Bright</source>
        <translation>Über Keel Bright</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Engine</source>
        <translation>Verfahren</translation>
    </message>
    <message>
        <source>Local file copy · FileManager</source>
        <translation>Lokale Dateikopie · FileManager</translation>
    </message>
    <message>
        <source>Encryption</source>
        <translation>Verschlüsselung</translation>
    </message>
    <message>
        <source>Not enabled</source>
        <translation>Nicht eingeschaltet</translation>
    </message>
    <message>
        <source>Cloud backup</source>
        <translation>Cloud-Backup</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>No destination selected</source>
        <translation>Kein Ziel ausgewählt</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
</context>
<context>
    <name>keelbright::ShareBar</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Kinds of files</source>
        <translation>Dateiarten</translation>
    </message>
</context>
<context>
    <name>keelbright::ShortcutBar</name>
    <message>
        <source>Home</source>
        <translation>Persönlich</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Schreibtisch</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
</context>
<context>
    <name>keelbright::SidebarView</name>
    <message>
        <source>Protect</source>
        <translation>Schützen</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Bereinigen</translation>
    </message>
    <message>
        <source>Organise</source>
        <translation>Ordnen</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Nachsehen</translation>
    </message>
    <message>
        <source>Keel Bright</source>
        <translation>Keel Bright</translation>
    </message>
    <message>
        <source>Screens</source>
        <translation>Bereiche</translation>
    </message>
</context>
<context>
    <name>keelbright::SnapshotRows</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>keelbright::SourceRowCard</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
<context>
    <name>keelbright::StateAnnouncer</name>
    <message>
        <source>Backup running</source>
        <translation>Backup läuft</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>Wird abgebrochen...</translation>
    </message>
    <message>
        <source>Backup %1% complete</source>
        <translation>Backup zu %1 % fertig</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>%1 is not connected</source>
        <translation>%1 ist nicht verbunden</translation>
    </message>
    <message>
        <source>%1 is connected again</source>
        <translation>%1 ist wieder verbunden</translation>
    </message>
</context>
<context>
    <name>keelbright::StatusCard</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>keelbright::StorageBrowserView</name>
    <message>
        <source>Choose a Folder to Explore</source>
        <translation>Wählen Sie einen Ordner</translation>
    </message>
    <message>
        <source>Use the shortcuts above or &quot;Choose Folder&quot; to browse any location on your Mac.</source>
        <translation>Mit den Kurzwegen oben oder mit „Ordner wählen“ sehen Sie jeden Ort Ihres Computers an.</translation>
    </message>
    <message>
        <source>Choose Folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>Calculating folder sizes…</source>
        <translation>Ordnergrößen werden berechnet …</translation>
    </message>
    <message>
        <source>%1 was added to the backup sources</source>
        <translation>%1 wird nun mitgesichert</translation>
    </message>
    <message>
        <source>%1 is among the backup sources already</source>
        <translation>%1 wird bereits mitgesichert</translation>
    </message>
    <message>
        <source>Move &quot;%1&quot; to Trash?</source>
        <translation>„%1“ in den Papierkorb legen?</translation>
    </message>
    <message>
        <source>This cannot be undone from here. You can recover it from the Trash.</source>
        <translation>Das lässt sich hier nicht rückgängig machen. Sie können es aus dem Papierkorb zurückholen.</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>keelbright::StorageHeader</name>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Storage Browser</source>
        <translation>Speicherbelegung</translation>
    </message>
    <message>
        <source>Organise</source>
        <translation>Ordnen</translation>
    </message>
    <message>
        <source>Choose Folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>Open this folder in Smart Organizer</source>
        <translation>Diesen Ordner unter „Dateien ordnen“ öffnen</translation>
    </message>
    <message>
        <source>Navigate any folder to see what&apos;s taking up space.</source>
        <translation>Sehen Sie Ordner für Ordner, was Platz belegt.</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>Sortierung: %1</translation>
    </message>
</context>
<context>
    <name>keelbright::TreemapView</name>
    <message>
        <source>Treemap</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Nothing here takes up space.</source>
        <translation>Hier belegt nichts Platz.</translation>
    </message>
    <message>
        <source>The largest: %1.</source>
        <translation>Am größten: %1.</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>keelbright::UndoResultPanel</name>
    <message>
        <source>Not put back</source>
        <translation>Nicht zurückgelegt</translation>
    </message>
    <message>
        <source>Copy the list</source>
        <translation>Liste kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>keelbright::UndoRunningPanel</name>
    <message>
        <source>Undo progress</source>
        <translation>Fortschritt des Rückgängigmachens</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>Wird abgebrochen...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Putting everything back…</source>
        <translation>Alles wird zurückgelegt …</translation>
    </message>
</context>
</TS>

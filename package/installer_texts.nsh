; Setup's own texts in English and German; the pages' texts come with the Modern UI.

LangString NeedsAdministrator ${LANG_ENGLISH} "Lumivex is installed for every user of this computer: changing it needs administrative rights.$\r$\nStart this program again as an administrator."
LangString NeedsAdministrator ${LANG_GERMAN} "Lumivex ist für alle Benutzer dieses Computers installiert: Änderungen daran erfordern Administratorrechte.$\r$\nStarten Sie dieses Programm erneut als Administrator."

LangString LumivexRunning ${LANG_ENGLISH} "Lumivex is running from $INSTDIR and must be closed first.$\r$\n$\r$\nClick OK to close Lumivex, or Cancel to stop."
LangString LumivexRunning ${LANG_GERMAN} "Lumivex läuft aus $INSTDIR und muss zuerst beendet werden.$\r$\n$\r$\nKlicken Sie auf OK, um Lumivex zu beenden, oder auf Abbrechen, um aufzuhören."

LangString LumivexStillRunning ${LANG_ENGLISH} "Lumivex is still running. Close it yourself, then click Retry."
LangString LumivexStillRunning ${LANG_GERMAN} "Lumivex läuft noch. Beenden Sie es selbst und klicken Sie dann auf Wiederholen."

LangString ShortcutDescription ${LANG_ENGLISH} "Process manager"
LangString ShortcutDescription ${LANG_GERMAN} "Prozessverwaltung"

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Build</translation>
    </message>
    <message>
        <source>64 bit</source>
        <translation>64 bits</translation>
    </message>
    <message>
        <source>Visit our home page</source>
        <translation>Visitez notre site web</translation>
    </message>
</context>
<context>
    <name>CAboutSorelDlg</name>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
</context>
<context>
    <name>CLanguageManager</name>
    <message>
        <source>language name</source>
        <translation>Français</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1036</translation>
    </message>
</context>
<context>
    <name>CLanguageTest</name>
    <message>
        <source>language name</source>
        <translation>Français</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1036</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>Dialog</source>
        <translation>Boîte de dialogue</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Faire pivoter</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>Ne pas enregistrer</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>Ne pas quitter</translation>
    </message>
    <message>
        <source>Quit without saving</source>
        <translation>Quitter sans enregistrer</translation>
    </message>
</context>
<context>
    <name>HostWarningDlg</name>
    <message>
        <source>Open original image</source>
        <translation>Ouvrir l&apos;image d&apos;origine</translation>
    </message>
    <message>
        <source>Your image cannot be modified.</source>
        <translation>Votre image ne peut pas être modifiée avec Vexa Rectivo 3.</translation>
    </message>
    <message>
        <source>Why cannot I save with this host application?</source>
        <translation>Pourquoi ne puis-je pas enregistrer mes modifications Vexa Rectivo 3 dans cette application hôte ?</translation>
    </message>
    <message>
        <source>Unfortunately this plugin cannot be used as a plugin for this host application.</source>
        <translation>Malheureusement, Vexa Rectivo 3 ne peut pas être utilisé comme module externe dans cette application hôte. Le module modifie les dimensions de vos images, ce qui est impossible dans votre application hôte actuelle. 
Vous pouvez néanmoins essayer le logiciel et ses fonctions, mais vous ne pourrez pas enregistrer vos modifications. 
Vexa Rectivo 3 peut aussi être utilisé comme application autonome.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Essayer</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>in</source>
        <translation>po</translation>
    </message>
    <message>
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>Ko</translation>
    </message>
    <message>
        <source>B</source>
        <translation>o</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Windows small space message on drive %1</source>
        <translation>Vexa Rectivo 3 ne peut pas démarrer car l&apos;espace libre sur le disque %1 est insuffisant.
Veuillez supprimer les fichiers inutiles de ce disque et réessayer.</translation>
    </message>
    <message>
        <source>Out of memory. Program will be closed.</source>
        <translation>Vexa Rectivo 3 doit se fermer car la mémoire disponible est insuffisante.
Veuillez fermer d&apos;autres programmes et relancer Vexa Rectivo 3.</translation>
    </message>
    <message>
        <source>%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, quit all other programs running, and try again.</source>
        <translation>%1 ne dispose plus de mémoire suffisante. L&apos;application risque désormais d&apos;être instable. Veuillez fermer %2 et Photoshop, quitter tous les autres programmes en cours d&apos;exécution, puis réessayer.</translation>
    </message>
    <message>
        <source>Unhandled exception. Program will be closed.</source>
        <translation>Vexa Rectivo 3 doit se fermer en raison d&apos;une exception non gérée.</translation>
    </message>
</context>
<context>
    <name>aboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>Shift your perspective</source>
        <translation>Changez de perspective</translation>
    </message>
    <message>
        <source>%1 and the Vexa logo are trademarks of Vexa Labs. All rights reserved.&lt;br&gt;&lt;br&gt;This software uses the components whose licences follow.&lt;br&gt;&lt;br&gt;</source>
        <translation>%1 et le logo Vexa sont des marques de Vexa Labs. Tous droits réservés.&lt;br&gt;&lt;br&gt;Ce logiciel utilise les composants dont les licences suivent.&lt;br&gt;&lt;br&gt;</translation>
    </message>
</context>
<context>
    <name>aboutSorelDlg</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Sorel Collection by Vexa</source>
        <translation>Sorel Collection par Vexa</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ArchivePage</name>
    <message>
        <source>%1 files compressed into %2 (%3 bytes).</source>
        <translation>%1 fichiers compressés dans %2 (%3 octets).</translation>
    </message>
    <message>
        <source>Compression failed.</source>
        <translation>La compression a échoué.</translation>
    </message>
    <message>
        <source>%1 files extracted into %2.</source>
        <translation>%1 fichiers extraits dans %2.</translation>
    </message>
    <message>
        <source>Writing the files: %p%</source>
        <translation>Écriture des fichiers : %p%</translation>
    </message>
    <message>
        <source>Extracting: %p%</source>
        <translation>Extraction : %p%</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Compress a set of generated files with the archive helpers, then extract it again</source>
        <translation>Compresser un ensemble de fichiers générés avec les fonctions d’archive, puis l’extraire à nouveau</translation>
    </message>
    <message>
        <source> files</source>
        <translation> fichiers</translation>
    </message>
    <message>
        <source>Compress</source>
        <translation>Compresser</translation>
    </message>
    <message>
        <source>Extract</source>
        <translation>Extraire</translation>
    </message>
</context>
<context>
    <name>ShowcaseWindow</name>
    <message>
        <source>The image was changed. Do you want to save the changes before closing it?</source>
        <translation>L’image a été modifiée. Voulez-vous enregistrer les modifications avant de la fermer ?</translation>
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
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>Ne pas enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Fermée</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>The image was saved.</source>
        <translation>L’image a été enregistrée.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>The file cannot be opened.</source>
        <translation>Le fichier ne peut pas être ouvert.</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>Critique</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>L’opération a échoué.</translation>
    </message>
    <message>
        <source>Yes / No</source>
        <translation>Oui / Non</translation>
    </message>
    <message>
        <source>Rotate question</source>
        <translation>Question de rotation</translation>
    </message>
    <message>
        <source>Rotate the image?</source>
        <translation>Faire pivoter l’image ?</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Faire pivoter</translation>
    </message>
    <message>
        <source>Save / Don&apos;t save / Cancel</source>
        <translation>Enregistrer / Ne pas enregistrer / Annuler</translation>
    </message>
    <message>
        <source>Background processing</source>
        <translation>Traitement en arrière-plan</translation>
    </message>
    <message>
        <source>The image is still being processed.</source>
        <translation>L’image est encore en cours de traitement.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>Ne pas quitter</translation>
    </message>
    <message>
        <source>Host warning</source>
        <translation>Avertissement sur l’hôte</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>About Sorel</source>
        <translation>À propos de Sorel</translation>
    </message>
    <message>
        <source>Folder chooser</source>
        <translation>Choix du dossier</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulé</translation>
    </message>
    <message>
        <source>UtilsDll showcase</source>
        <translation>Vitrine UtilsDll</translation>
    </message>
    <message>
        <source>Language (%1):</source>
        <translation>Langue (%1) :</translation>
    </message>
    <message>
        <source>Dialogs</source>
        <translation>Boîtes de dialogue</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Dessin</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>Archives</translation>
    </message>
    <message>
        <source>SOAP</source>
        <translation>SOAP</translation>
    </message>
    <message>
        <source>Run on a temporary settings store</source>
        <translation>Utiliser un magasin de réglages temporaire</translation>
    </message>
</context>
<context>
    <name>SoapPage</name>
    <message>
        <source>Waiting for the answer...</source>
        <translation>En attente de la réponse...</translation>
    </message>
    <message>
        <source>Fault: %1</source>
        <translation>Erreur : %1</translation>
    </message>
    <message>
        <source>No fault.</source>
        <translation>Aucune erreur.</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Hôte</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>HTTPS</source>
        <translation>HTTPS</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Chemin</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Méthode</translation>
    </message>
    <message>
        <source>Namespace</source>
        <translation>Espace de noms</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Arguments</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>Utiliser HTTPS</translation>
    </message>
    <message>
        <source>Send the request</source>
        <translation>Envoyer la requête</translation>
    </message>
    <message>
        <source>The request envelope</source>
        <translation>L’enveloppe de la requête</translation>
    </message>
    <message>
        <source>The response envelope</source>
        <translation>L’enveloppe de la réponse</translation>
    </message>
</context>
<context>
    <name>ToolsPage</name>
    <message numerus="yes">
        <source>&quot;%1&quot; (shown %n time(s))</source>
        <translation>
            <numerusform>« %1 » (affiché %n fois)</numerusform>
            <numerusform>« %1 » (affiché %n fois)</numerusform>
        </translation>
    </message>
    <message>
        <source>The seven tool cursors</source>
        <translation>Les sept curseurs d’outil</translation>
    </message>
    <message>
        <source>A tool line, tiled and stretched</source>
        <translation>Une ligne d’outil, en mosaïque et étirée</translation>
    </message>
    <message>
        <source>An icon ignoring, keeping and expanding its aspect</source>
        <translation>Une icône qui ignore, garde et étend ses proportions</translation>
    </message>
    <message>
        <source>A debounced field: the text below follows once typing pauses</source>
        <translation>Un champ temporisé : le texte ci-dessous suit dès que la saisie marque une pause</translation>
    </message>
</context>
</TS>

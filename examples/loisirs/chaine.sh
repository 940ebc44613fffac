# La chaîne d'exemple, une commande par programme : lancer « sh chaine.sh » dans une copie de ce dossier.
quelvar-batch import-csv LOISIRS
quelvar-batch triapl LOISIRS

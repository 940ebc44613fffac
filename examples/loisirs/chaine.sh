# La chaîne d'exemple, une commande par programme : lancer « sh chaine.sh » dans une copie de ce dossier.
quelvar-batch import-csv LOISIRS
quelvar-batch triapl LOISIRS
quelvar-batch croise LOISIRS lignes=PRO colonnes=LEC,CIN nonreponses=exclues
quelvar-batch posmod LOISIRS actives=LEC,MUS,CIN,SPE,EXP,ORD,SPO,MAR supplementaires=SEX,AGE,PRO codeszero=non
quelvar-batch ecapem LOISIRS

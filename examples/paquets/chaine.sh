# Des réponses en texte libre au plan des mots : lancer « sh chaine.sh » dans une copie de ce dossier.
# Ponctuation et majuscules ôtées, accents gardés : PAQUETS.TXT devient PAQUETT.txt.
quelvar-batch preptext PAQUETS accents=non
# Un mot par ligne, avec le domaine, la taille et l'interface du paquet (trois colonnes avant le texte).
quelvar-batch --reponse DOM --reponse 9 --reponse TAI --reponse 4 --reponse INT --reponse 2 saisiemot PAQUETT position=3
quelvar-batch concordance PAQUETT mots=jeu,jeux ordre=droite sortie=jeu.txt
# Les mots employés 20 fois ou plus, croisés avec le domaine.
quelvar-batch --niveau 2 tabmot PAQUETT questions=DOM frequence=20
# Les formes d'un même mot réunies : PAQUETT devient PAQUETU.
quelvar-batch tabmotagreg PAQUETT agreger=jeu/jeux=jeu,jeux agreger=image/images=image,images \
  agreger=système=système,systèmes agreger=utiliser=utilise,utiliser,utilisé,utilisant,utilisatio,utilisateu \
  agreger=fichier=fichier,fichiers agreger=bibliothèque=bibliothèq agreger=serveur=serveur agreger=éditeur=éditeur \
  agreger=vidéo=vidéo agreger=texte=texte agreger=interface=interface agreger=dictionnaire=dictionnai \
  agreger=format=format,formats
# Le mot d'un seul paquet très bavard, les mots outils et « application », que tous emploient, ne font pas les facteurs :
# ils y sont seulement placés.
quelvar-batch suplmot PAQUETU \
  lignes-sup=postgresql,de,un,est,et,d,des,les,une,en,le,la,à,l,ce,qui,avec,sur,du,ou,dans,s,il,par,aux,que,au,comme,c,x,son,se,n,non,vous,tous,plus,applicatio \
  intitule-ligne=base=base intitule-ligne=moteur=moteur intitule-ligne=données=données intitule-ligne=client=client \
  intitule-ligne=web=web intitule-ligne=programme=programme \
  intitule-ligne=visualisat=visualisation intitule-ligne=3d=3D
quelvar-batch anecar PAQUETU
# Les mots et les domaines (en vert) qui font les deux premiers facteurs, sur leur plan : mots.svg, et la même image en PNG.
quelvar-batch graphe PAQUETU fichier=mots.svg pointexact=oui longs=oui niveaucpf=14 points=actifs \
  marques=DOM1,DOM2,DOM3,DOM4,DOM5,DOM6,DOM7,DOM8,DOM9
if command -v rsvg-convert >/dev/null; then
  rsvg-convert --dpi-x 150 --dpi-y 150 mots.svg --output mots.png
else
  echo "mots.png n'est pas écrit : il y faut rsvg-convert (paquet librsvg2-bin)" >&2
fi

# La chaîne d'exemple, une commande par programme : lancer « sh chaine.sh » dans une copie de ce dossier.
quelvar-batch import-csv LOISIRS
quelvar-batch triapl LOISIRS
quelvar-batch croise LOISIRS lignes=PRO colonnes=LEC,CIN nonreponses=exclues
quelvar-batch posmod LOISIRS actives=LEC,MUS,CIN,SPE,EXP,ORD,SPO,MAR supplementaires=SEX,AGE,PRO codeszero=non
quelvar-batch ecapem LOISIRS
# Les personnes dont on connaît la profession, l'âge en trois classes, un score de sorties et de pratiques culturelles.
quelvar-batch preprecod LOISIRS regle=AGE=1-2=1/3-5=2/6-8=3 filtre=excl:PRO=0 vit=CUL=LEC=1,MUS=1,CIN=1,SPE=1,EXP=1,INS=1
quelvar-batch recodage LOISIRS enfin=oui toutes=non
quelvar-batch triapl LOISIRT nonreponses=exclues
# Les facteurs des pratiques, sexe, âge et profession placés sur leur plan : plan.svg, et la même image en PNG.
quelvar-batch anecar LOISIRS
quelvar-batch graphe LOISIRS fichier=plan.svg pointexact=oui longs=oui
if command -v rsvg-convert >/dev/null; then
  rsvg-convert --dpi-x 150 --dpi-y 150 plan.svg --output plan.png
else
  echo "plan.png n'est pas écrit : il y faut rsvg-convert (paquet librsvg2-bin)" >&2
fi
# Qui va au cinéma ? Les questions qui lui sont le plus liées, puis le sexe, l'âge et la profession à la fois.
quelvar-batch varint LOISIRT questions=CIN
quelvar-batch posmod LOISIRT mode=regr 'actives=CIN,SEX,*AG,PRO' codeszero=non
quelvar-batch modifmodr LOISIRT expliquer=CIN1 'reference=SEX1,*AG1,PRO5' \
  'intitule=CIN1=va au cinéma' 'intitule=SEX1=Homme' 'intitule=SEX2=Femme' \
  'intitule=*AG1=Moins de 36 ans' 'intitule=*AG2=De 36 à 65 ans' 'intitule=*AG3=Plus de 65 ans'
quelvar-batch anatab LOISIRT

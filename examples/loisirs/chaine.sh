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
  'intitule=*AG1=Moins de 36 ans' 'intitule=*AG2=De 36 à 65 ans' 'intitule=*AG3=Plus de 65 ans' \
  'intitule=PRO1=ONQ Ouvrier non qualifié' 'intitule=PRO2=OQ Ouvrier qualifié' 'intitule=PRO3=Technicien' \
  'intitule=PRO4=Contremaître' 'intitule=PRO5=Cadre' 'intitule=PRO6=Employé' 'intitule=PRO7=Autre'
# Les effets de chaque modalité, à la fois par les sous-effets et par le modèle logistique : effets.svg.
quelvar-batch anatab LOISIRT image=effets.svg
# Les sorties et pratiques culturelles d'après l'âge et la télévision, par les moindres carrés : une zone du fichier,
# chaque colonne a sa ligne dans le fichier des modalités.
quelvar-batch exporter LOISIRT a=LOISIRT.DAT c=SORTIES.CDG debut=18 fin=30
printf '%s\r\n' SORTIES ' FMT=1' 'TEL  X Télévision par jour' 'SEX    Sexe' 'AGE  X Age en 8 classes' \
  'MAT    Situation matrimoniale' 'PRO    Profession' 'NBA1   Activités, dizaines' 'NBA2   Activités, unités' \
  '*AG    Age en 3 classes' 'CUL  Y Sorties et pratiques' | iconv -f UTF-8 -t WINDOWS-1252 >SORTIES.MOD
quelvar-batch reglin SORTIES

# shellcheck shell=bash
# The rows of the table of the README, for whoever defines how one is timed (mesure.sh, compare.sh), in a directory of
# its own with `bin` for the programs:
#   ligne NOM FICHIER AVANT COMMANDE...    a command on a source, after AVANT has removed what it makes
"$bin/quelvar-genere" . CENT 100000 100
"$bin/quelvar-genere" . MILLION 1000000 100
"$bin/quelvar-genere" . TCENT 100000 100 --csv
"$bin/quelvar-genere" . TMILLION 1000000 100 --csv
"$bin/quelvar-genere" . DCENT 100000 100 --dbf

# programme GENERIQUE SOURCE SORTIES COMMANDE... : a program, with the files that it makes removed before each run
programme() {
  local generique=$1 source=$2 sorties=$3 avant="rm -f" extension
  shift 3
  for extension in $sorties; do avant="$avant $generique.$extension"; done
  ligne "$1" "$generique.$source" "$avant" "$bin/quelvar-batch" "$1" "$generique" "${@:2}"
}

for g in CENT MILLION; do
  ligne "plancher : décoder et compter" $g.DAT "" "$bin/quelvar-plancher" dat $g
  programme $g DAT "TAP" triapl
  ligne "croise, 25 tableaux" $g.DAT "rm -f $g.TCR" "$bin/quelvar-batch" croise $g \
    lignes=A00,A01,A02,A04,A05 colonnes=A06,A08,A0A,A0C,A0D
  programme $g DAT "BRT CDG PRT" posmod actives=A00,A01,A02,A04,A05,A06,A08,A0A,A0C,A0D oublier=oui
done
# Every cross of twenty questions with twenty others, one filtered by its six modalities, and a table of 100 codes
"$bin/quelvar-genere" . QUARANTE 99999 40
noms=$(sed -n '3,$s/^\(...\).*/\1/p' QUARANTE.POS)
croix="lignes=$(head -n 20 <<<"$noms" | paste -sd,) colonnes=$(tail -n 20 <<<"$noms" | paste -sd,)"
ligne "croise, 400 tableaux, éditions compactes" QUARANTE.DAT "rm -f QUARANTE.TCR" \
  "$bin/quelvar-batch" croise QUARANTE $croix edition=compacte
ligne "croise, un tri à 3 dimensions" MILLION.DAT "rm -f MILLION.TCR" \
  "$bin/quelvar-batch" --niveau 2 croise MILLION lignes=A00 colonnes=A01 filtres=A02
"$bin/quelvar-genere" . CODES 20000 2 --actives 99
ligne "croise, édition étendue de 100 x 100" CODES.DAT "rm -f CODES.TCR" \
  "$bin/quelvar-batch" --niveau 2 --reponse Oui croise CODES lignes=A00 colonnes=A01 2>/dev/null
# Twenty rules, a filter and a VIT in place; then a weighting whose result is thinned to about ten times the input.
regles=$(for q in A00 A01 A02 A04 A05 A06 A08 A0A A0C A0D A0E A0F A0G A0I A0J A0K A0M A0N A0O A0P; do
  echo "regle=$q=1-2=1/R=2"
done)
"$bin/quelvar-batch" preprecod MILLION $regles filtre=excl:A03=2 vit=VIT=A00=1,A01=1,A02=1,A04=1,A05=1,A06=1 >/dev/null
sed 's/EXCL.*$//; /^\$\$/,$d' MILLION.POS >PONDERE.POS
ln MILLION.DAT PONDERE.DAT
"$bin/quelvar-batch" preprecod PONDERE ponderation=A09 regle=A09=1-17=17 >/dev/null
ligne "recodage, 20 règles, filtre, VIT" MILLION.DAT "rm -f MILLIOO.*" "$bin/quelvar-batch" recodage MILLION
ligne "recodage pondéré et réduit" PONDERE.DAT "rm -f PONDERF.*" "$bin/quelvar-batch" recodage PONDERE
rm -f PONDER?.* MILLIOO.*
for g in TCENT TMILLION; do
  ligne "plancher : voir chaque octet" $g.CSV "" "$bin/quelvar-plancher" octets $g.CSV
  programme $g CSV "DAT POS PO2 IMP" import-csv
  programme $g CSV "DAT POS PO2 IMP IMC" import fichier=$g.CSV
done
# The codes of a million individuals as twenty columns of short texts, and the look at a large file before its import.
awk -F';' -v OFS=';' '
  BEGIN { split("Femme,Homme,Tout à fait,Plutôt,Ouvrier,Cadre,Nord,Sud,Ouest,NSP", textes, ",") }
  { ligne = ""
    for (j = 1; j <= 20; j++) ligne = ligne (j > 1 ? OFS : "") (NR == 1 ? $j : textes[$j % 10 + 1])
    print ligne }' TMILLION.CSV >TEXTES.CSV
ligne "import, 20 colonnes de textes" TEXTES.CSV "rm -f TEXTES.DAT TEXTES.POS TEXTES.MOD" \
  "$bin/quelvar-batch" import TEXTES fichier=TEXTES.CSV
ligne "plancher : voir chaque octet" DCENT.DBF "" "$bin/quelvar-plancher" octets DCENT.DBF
programme DCENT DBF "DAT POS PO2 IMP" import-dbf
# A hundred records keyed behind 200,000 others, with the disk and without it.
"$bin/quelvar-genere" . ENTREE 200000 100
awk 'NR > 2 { printf "%-7s%2d     \r\n", substr($0, 1, 3), substr($0, 8, 2) }' ENTREE.POS >ENTREE.DES
for n in $(seq 100); do echo "Droite Bas Droite Entree"; done >ENTREE.CLAVIER
for mode in non oui; do
  ligne "saisie, 100 enregistrements, synchroniser=$mode" ENTREE.DAT "" \
    sh -c "$bin/quelvar-batch saisie ENTREE synchroniser=$mode <ENTREE.CLAVIER >/dev/null 2>&1"
done

# Burt tables of 200, of 1,500 and of 3,500 modalities
burt() {
  ligne "posmod, $2 modalités" $1.DAT "rm -f $1.BRT $1.CDG $1.PRT" \
    "$bin/quelvar-batch" posmod $1 oublier=oui codeszero=non
}
"$bin/quelvar-genere" . BURT40 20000 40 --actives 5
burt BURT40 200
"$bin/quelvar-genere" . BURT 20000 300 --actives 5
burt BURT "1 500"
ligne "ecapem, 1 500 modalités" BURT.BRT "rm -f BURT.PEM BURT.PEL BURT.PRO" \
  "$bin/quelvar-batch" ecapem BURT intitules=courts
"$bin/quelvar-genere" . BURT700 3000 700 --actives 5
burt BURT700 "3 500"

# Three factors of those tables; a tree over 10,000 individuals on five factors.
facteurs() {
  ligne "anecar, $2" $1.BRT "rm -f $1.AFC $1.FAJ $1.FAI $1.FJ2 $1.FI2 $1.CAH" "$bin/quelvar-batch" anecar $1 "${@:3}"
}
facteurs BURT "1 500 modalités" facteurs=3
facteurs BURT700 "3 500 modalités" facteurs=3
"$bin/quelvar-genere" . INDIV 10000 20 --actives 5
"$bin/quelvar-batch" posmod INDIV oublier=oui codeszero=non individus=oui >/dev/null
facteurs INDIV "10 000 individus" facteurs=5
facteurs INDIV "10 000 individus, Ward" facteurs=5 cah=ward2 individus=oui

# Textual data: 100,000 answers of twelve words with five characteristics, and a million lines to sort.
awk 'BEGIN { srand(1); for (i = 0; i < 100000; i++) { l = ""; for (c = 0; c < 5; c++) l = l (1 + int(rand() * 5));
  for (m = 0; m < 12; m++) { r = rand(); l = l (m ? " " : "") sprintf("mot%d", int(7000 * r * r * r)) } print l "*" } }' >MOTS.TXT
printf 'MOTS\r\n 0 \r\n' >MOTS.POS
for q in 1 2 3 4 5; do printf 'Q%d %4d 5 &ACT&\r\n' $q $q >>MOTS.POS; done
ligne "plancher : voir chaque octet" MOTS.TXT "" "$bin/quelvar-plancher" octets MOTS.TXT
ligne "saisiemot, 1,2 million de mots" MOTS.TXT "rm -f MOTS.DAT MOTS.IMP" "$bin/quelvar-batch" saisiemot MOTS position=5
ligne "tabmot, 5 questions" MOTS.DAT "rm -f MOTS.BRT MOTS.MOD MOTS.PRT" "$bin/quelvar-batch" tabmot MOTS
ligne "preptext" MOTS.DAT "rm -f MOTT.txt MOTT.pos MOTT.mod MOTT.prt" "$bin/quelvar-batch" preptext MOTS dat=oui
ligne "concordance d'un mot" MOTS.DAT "" "$bin/quelvar-batch" concordance MOTS mots=mot77
ligne "concordance de 120 000 lignes, contexte gauche" MOTS.DAT "" "$bin/quelvar-batch" concordance MOTS \
  mots=mot0,mot1,mot2,mot3,mot4,mot5,mot6 ordre=gauche
awk 'BEGIN { srand(2); for (i = 0; i < 1000000; i++) printf "%010d une ligne de soixante caracteres pour le tri        \n", int(rand() * 5000) }' >LIGNES.TXT
ligne "plancher : voir chaque octet" LIGNES.TXT "" "$bin/quelvar-plancher" octets LIGNES.TXT
ligne "trifichier, un million de lignes" LIGNES.TXT "rm -f TRIE.TXT" "$bin/quelvar-batch" trifichier MOTS a=LIGNES.TXT \
  c=TRIE.TXT position=1 largeur=10

# Utilities on a million individuals, the profile of a modality, the grouping of Burt tables.
ligne "plancher : voir chaque octet" MILLION.DAT "" "$bin/quelvar-plancher" octets MILLION.DAT
for programme in "exporter a=MILLION.DAT c=ZONE.TXT debut=1 fin=50" "fusionner a=MILLION.DAT b=CENT.DAT c=JOINTS.TXT type=append" \
  "caracteres a=CENT.DAT"; do
  source=MILLION.DAT
  [[ $programme == caracteres* ]] && source=CENT.DAT
  ligne "${programme%% *}" $source "rm -f ZONE.TXT JOINTS.TXT RIEN.prt" "$bin/quelvar-batch" "${programme%% *}" RIEN ${programme#* }
done
rm -f ZONE.TXT JOINTS.TXT RIEN.prt
cp -f MILLION.MOD MODALITES.MOD 2>/dev/null || printf 'MILLION\r\n BRT=2 FMT=1\r\nA000\r\nA001\r\n' >MILLION.MOD
ligne "export-csv" MILLION.DAT "rm -f MILLION.csv" "$bin/quelvar-batch" export-csv MILLION
# Without the table that posmod made of it
rm -f MILLION.BRT MILLION.CDG
ligne "profilmod, d'après les données" MILLION.DAT "rm -f MILLION.PR2" \
  "$bin/quelvar-batch" profilmod MILLION modalites="$(sed -n '4s/^\(....\).*/\1/p' MILLION.MOD)"
rm -f MILLION.csv
regroupement() {
  local colonnes
  colonnes=$(sed -n '3,12s/^\(....\).*/\1/p' $1.MOD | paste -sd,)
  ligne "modifburt, $2" $1.BRT "rm -f $3.*" "$bin/quelvar-batch" modifburt $1 colonnes="$colonnes" nomcolonne=Groupe
}
ligne "plancher : voir chaque octet" BURT.BRT "" "$bin/quelvar-plancher" octets BURT.BRT
regroupement BURT "1 500 modalités" BURU
regroupement BURT700 "3 500 modalités" BURT701
# Two thousand points of a triangle, their labels kept apart.
awk 'BEGIN { srand(4); print "Deux mille\nUn\nDeux\nTrois"; for (i = 0; i < 2000; i++) { a = -log(1 - rand()); b = -log(1 - rand());
  c = -log(1 - rand()); t = (a + b + c) / 100; printf "Q%02d%d%5.1f%5.1f%5.1f point %d\n", i / 9 % 100, i % 9 + 1, a / t, b / t, c / t, i } }' >POINTS.TRG
ligne "triang, 2 000 points" POINTS.TRG "rm -f POINTSTrg.svg" "$bin/quelvar-batch" triang POINTS

# Regression: codings of questions of four modalities (six, whose records share values in the sort; three, where they
# do not), a table of ten numbers, the links of a hundred questions.
codage() {
  awk -v n="$2" -v questions="$3" 'BEGIN { srand(3); for (i = 1; i <= n; i++) { l = sprintf("%-4.4s", i); s = 0; r = "";
    for (q = 0; q < questions; q++) { k = int(rand() * rand() * 6); if (k > 3) k = 3; s += k; r = r substr("1000010000100001", 4 * k + 1, 4) }
    print l (rand() < 0.2 + s / (5 * questions) ? "10" : "01") r "\r" } }' >$1.CDG
  { printf '%s\r\n FMT=1\r\nOUI1 Y oui\r\nOUI2   non\r\n' $1
    for ((q = 1; q <= $3; q++)); do for m in 1 2 3 4; do printf 'Q%d_%d %s Q%d%d modalite\r\n' $q $m "$([ $m = 1 ] && echo R || echo X)" $q $m; done; done; } >$1.MOD
}
codage CODE6 100000 6
ligne "plancher : voir chaque octet" CODE6.CDG "" "$bin/quelvar-plancher" octets CODE6.CDG
ligne "anatab, 6 questions" CODE6.CDG "rm -f CODE6.TRP" "$bin/quelvar-batch" anatab CODE6 2>/dev/null
codage CODEM6 1000000 6
ligne "anatab, 6 questions, un million (rapport de 600 Mo)" CODEM6.CDG "rm -f CODEM6.TRP" "$bin/quelvar-batch" anatab CODEM6 2>/dev/null
rm -f CODEM6.*
codage CODE3 1000000 3
ligne "plancher : voir chaque octet" CODE3.CDG "" "$bin/quelvar-plancher" octets CODE3.CDG
ligne "anatab, 3 questions" CODE3.CDG "rm -f CODE3.TRP" "$bin/quelvar-batch" anatab CODE3 2>/dev/null
awk 'BEGIN { srand(4); for (i = 1; i <= 1000000; i++) { l = sprintf("%-4.4s", i); for (v = 0; v < 11; v++) l = l sprintf("%6.2f", rand() * 100); print l } }' >NOMBRES.CDG
{ printf 'NOMBRES\r\n FMT=6\r\nY    Y expliquee\r\n'; for v in 1 2 3 4 5 6 7 8 9 A; do printf 'X%s   X variable\r\n' $v; done; } >NOMBRES.MOD
ligne "plancher : voir chaque octet" NOMBRES.CDG "" "$bin/quelvar-plancher" octets NOMBRES.CDG
ligne "reglin, 10 variables" NOMBRES.CDG "rm -f NOMBRES.REG" "$bin/quelvar-batch" reglin NOMBRES
"$bin/quelvar-genere" . LIENS 100000 100 --actives 5
ligne "plancher : décoder et compter" LIENS.DAT "" "$bin/quelvar-plancher" dat LIENS
questions=$(sed -n '3,$s/^\(...\).*/\1/p' LIENS.POS)
ligne "varint, 10 questions sur 100" LIENS.DAT "rm -f LIENS.TRF LIENS.BRT LIENS.MOD" \
  "$bin/quelvar-batch" varint LIENS questions="$(head -n 10 <<<"$questions" | paste -sd,)"
ligne "varint, 100 questions" LIENS.DAT "rm -f LIENS.TRF LIENS.BRT LIENS.MOD" \
  "$bin/quelvar-batch" varint LIENS questions="$(paste -sd, <<<"$questions")"

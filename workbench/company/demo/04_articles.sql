-- 1000 articles of company 1, 120 of company 2, in 8 families of 4 sub-families each.

CREATE TABLE DEMO_SOTTOFAM (I int NOT NULL PRIMARY KEY, FAM varchar(15), SFAM varchar(15), DESCR varchar(40),
                            NOME varchar(40), UM varchar(6), BASE int, PASSO int)
GO

INSERT INTO DEMO_SOTTOFAM (I, FAM, SFAM, DESCR, NOME, UM, BASE, PASSO)
VALUES ( 0, 'FER', 'VIT', 'Viti e bulloni',        'Vite autofilettante',     'mm',   20,   5),
       ( 1, 'FER', 'SER', 'Serrature',             'Serratura da infilare',   'mm',   40,   5),
       ( 2, 'FER', 'MAN', 'Maniglie',              'Maniglia per porta',      'mm',  110,  10),
       ( 3, 'FER', 'CAT', 'Catene e funi',         'Catena zincata',          'cm',  100,  50),
       ( 4, 'UTE', 'ELE', 'Elettroutensili',       'Trapano a percussione',   'W',   450,  50),
       ( 5, 'UTE', 'CHI', 'Chiavi',                'Chiave combinata',        'mm',    6,   1),
       ( 6, 'UTE', 'MIS', 'Misura',                'Flessometro',             'm',     2,   1),
       ( 7, 'UTE', 'TAG', 'Taglio',                'Seghetto a mano',         'mm',  150,  10),
       ( 8, 'CAS', 'PEN', 'Pentole',               'Casseruola inox',         'cm',   14,   2),
       ( 9, 'CAS', 'TAV', 'Tavola',                'Piatto in porcellana',    'cm',   18,   1),
       (10, 'CAS', 'CON', 'Conservazione',         'Contenitore ermetico',    'ml',  250, 150),
       (11, 'CAS', 'PUL', 'Pulizia',               'Scopa per interni',       'cm',   25,   5),
       (12, 'GIA', 'IRR', 'Irrigazione',           'Tubo da giardino',        'm',    10,   5),
       (13, 'GIA', 'POT', 'Potatura',              'Forbice per potare',      'mm',  180,  10),
       (14, 'GIA', 'ARR', 'Arredo esterno',        'Fioriera',                'cm',   30,  10),
       (15, 'GIA', 'BAR', 'Barbecue',              'Griglia da esterno',      'cm',   35,   5),
       (16, 'ELE', 'LAM', 'Lampade',               'Lampadina a LED',         'W',     3,   1),
       (17, 'ELE', 'CAV', 'Cavi',                  'Cavo elettrico',          'm',     5,   5),
       (18, 'ELE', 'INT', 'Interruttori',          'Placca da parete',        'posti', 1,   1),
       (19, 'ELE', 'BAT', 'Pile',                  'Pila ricaricabile',       'mAh', 800, 100),
       (20, 'VER', 'INT', 'Vernici per interni',   'Idropittura lavabile',    'l',     1,   1),
       (21, 'VER', 'EST', 'Vernici per esterni',   'Quarzo al plastico',      'l',     5,   5),
       (22, 'VER', 'SMA', 'Smalti',                'Smalto all''acqua',       'ml',  125, 125),
       (23, 'VER', 'PEN', 'Pennelli',              'Pennellessa',             'mm',   30,  10),
       (24, 'IDR', 'RUB', 'Rubinetteria',          'Miscelatore lavabo',      'mm',   90,  10),
       (25, 'IDR', 'RAC', 'Raccordi',              'Raccordo in ottone',      'mm',   12,   2),
       (26, 'IDR', 'TUB', 'Tubazioni',             'Tubo multistrato',        'mm',   16,   2),
       (27, 'IDR', 'SAN', 'Sanitari',              'Sedile universale',       'cm',   36,   1),
       (28, 'BAG', 'ACC', 'Accessori bagno',       'Portasciugamani',         'cm',   30,   5),
       (29, 'BAG', 'DOC', 'Doccia',                'Soffione',                'mm',  100,  10),
       (30, 'BAG', 'SPE', 'Specchi',               'Specchio molato',         'cm',   40,   5),
       (31, 'BAG', 'TAP', 'Tappeti',               'Tappeto antiscivolo',     'cm',   40,   5)
GO

INSERT INTO MG53_FAMIGLIE (MG53_DITTA_CG18, MG53_FAM, MG53_DESCRFAM)
SELECT CG18_CODICE, FAM, DESCR
  FROM CG18_DITTE
 CROSS JOIN (VALUES ('FER', 'Ferramenta'),  ('UTE', 'Utensili'), ('CAS', 'Casalinghi'), ('GIA', 'Giardino'),
                    ('ELE', 'Elettricità'), ('VER', 'Vernici'),  ('IDR', 'Idraulica'),  ('BAG', 'Bagno')) AS F (FAM, DESCR)
GO

INSERT INTO MG54_SOTTOFAM (MG54_DITTA_CG18, MG54_FAM_MG53, MG54_SFAM, MG54_DESCRSFAM)
SELECT CG18_CODICE, FAM, SFAM, DESCR
  FROM CG18_DITTE
 CROSS JOIN DEMO_SOTTOFAM
GO

INSERT INTO MG55_GRUPPI (MG55_DITTA_CG18, MG55_FAM_MG53, MG55_SFAM_MG54, MG55_GRUPPO, MG55_DESCRGRUPPO)
SELECT 1, FAM, SFAM, GRUPPO, LINEA
  FROM DEMO_SOTTOFAM
 CROSS JOIN (VALUES ('G1', 'Linea base'), ('G2', 'Linea professionale'), ('G3', 'Linea industria')) AS G (GRUPPO, LINEA)
GO

-- A sub-group may stand under an empty group.
INSERT INTO MG56_SOTTOGRUPPI (MG56_DITTA_CG18, MG56_FAM_MG53, MG56_SFAM_MG54, MG56_GRUPPO_MG55, MG56_SGRUPPO, MG56_DESCRSGRUPPO)
SELECT 1, FAM, SFAM, GRUPPO, SGRUPPO, CONF
  FROM DEMO_SOTTOFAM
 CROSS JOIN (VALUES ('G1'), ('G2'), ('G3'), ('')) AS G (GRUPPO)
 CROSS JOIN (VALUES ('S1', 'Confezione singola'), ('S2', 'Confezione multipla')) AS S (SGRUPPO, CONF)
GO

-- The articles with what the price lists are made from. LIVELLO is the depth of the
-- family path: 0 none, 1 family ... 4 sub-group, 5 sub-group without a group.
CREATE TABLE DEMO_ARTICOLI (DITTA decimal(5,0) NOT NULL, N int NOT NULL, CODART varchar(15), SOTTOFAM int,
                            LIVELLO int, PREZZO decimal(18,6), SCONTO decimal(5,2), PRIMARY KEY (DITTA, N))
GO

INSERT INTO DEMO_ARTICOLI (DITTA, N, CODART, SOTTOFAM, LIVELLO, PREZZO, SCONTO)
SELECT CG18_CODICE, N, SFAM + '-' + RIGHT('000' + CAST(N AS varchar(4)), 4), I,
       CASE WHEN N % 125 = 124               THEN 0
            WHEN (N + N / 32) % 10 IN (0, 1) THEN 1
            WHEN (N + N / 32) % 10 IN (2, 3) THEN 2
            WHEN (N + N / 32) % 10 IN (4, 5) THEN 3
            WHEN (N + N / 32) % 10 = 9       THEN 5
            ELSE 4
       END,
       CASE N % 100 WHEN 1 THEN 19.90
                    WHEN 2 THEN 0.333333
                    WHEN 3 THEN 99.99
                    ELSE N * 7919 % 24989 * 0.01 + 0.9
       END,
       CASE WHEN N % 100 = 1 THEN 10
            WHEN N % 7 = 0   THEN 33.33
            WHEN N % 7 = 1   THEN 0
            WHEN N % 7 = 2   THEN 5
            WHEN N % 7 = 3   THEN 12.5
            ELSE                  10 + N % 7
       END
  FROM CG18_DITTE
 INNER JOIN DEMO_NUMERI   ON N <= CASE CG18_CODICE WHEN 1 THEN 1000 ELSE 120 END
 INNER JOIN DEMO_SOTTOFAM ON I = N % 32
GO

INSERT INTO MG66_ANAGRART (MG66_DITTA_CG18, MG66_CODART, MG66_FAM_MG53, MG66_SFAM_MG54, MG66_GRUPPO_MG55, MG66_SGRUPPO_MG56,
                           MG66_MARCA_MG64, MG66_GRUSTAT1_MG74, MG66_GRUSTAT2_MG75, MG66_GRUSTAT3_MG76, MG66_GRUSTAT4_MG77,
                           MG66_INDSTATO_MG6W, MG66_CLASC_MG63, MG66_UNMIS, MG66_DATAULTMOD)
SELECT DITTA, CODART,
       CASE WHEN LIVELLO >= 1     THEN FAM ELSE '' END,
       CASE WHEN LIVELLO >= 2     THEN SFAM ELSE '' END,
       CASE WHEN LIVELLO IN (3, 4) THEN 'G' + CAST(1 + N % 3 AS varchar(1)) ELSE '' END,
       CASE WHEN LIVELLO >= 4     THEN 'S' + CAST(1 + N / 32 % 2 AS varchar(1)) ELSE '' END,
       CASE N % 6 WHEN 0 THEN 'FVE' WHEN 1 THEN 'LUM' WHEN 2 THEN 'SAL' WHEN 3 THEN 'ADO' WHEN 4 THEN 'DOV' ELSE 'VMU' END,
       CASE N % 3 WHEN 0 THEN 'AR' WHEN 1 THEN 'MR' ELSE 'BR' END,
       CASE WHEN N % 4 = 0 THEN 'IMP' ELSE 'ITA' END,
       CASE N % 5 WHEN 0 THEN 'P' WHEN 1 THEN 'E' WHEN 2 THEN 'A' WHEN 3 THEN 'I' ELSE '' END,
       CASE WHEN N % 11 = 0 THEN 'PRO' ELSE 'CAT' END,
       CASE N % 17 WHEN 3 THEN 1 WHEN 5 THEN 2 WHEN 11 THEN 3 ELSE 0 END,
       CASE N % 4 WHEN 0 THEN 'A' WHEN 1 THEN 'B' WHEN 2 THEN 'C' ELSE '' END,
       'NR', DATEADD(day, N % 400, '20230101')
  FROM DEMO_ARTICOLI
 INNER JOIN DEMO_SOTTOFAM ON I = SOTTOFAM
GO

INSERT INTO MG87_ARTDESC (MG87_DITTA_CG18, MG87_CODART_MG66, MG87_OPZIONE_MG5E, MG87_LINGUA_MG52, MG87_DESCART, MG87_DESCESTESA)
SELECT DITTA, CODART, '', '',
       NOME + ' ' + CAST(BASE + PASSO * (N / 32) AS varchar(6)) + ' ' + UM,
       NOME + ', misura ' + CAST(BASE + PASSO * (N / 32) AS varchar(6)) + ' ' + UM + '. '
       + CASE N % 3 WHEN 0 THEN 'Garanzia di due anni.'
                    WHEN 1 THEN 'Qualità verificata in fabbrica.'
                    ELSE        'Imballo riciclabile.' END
  FROM DEMO_ARTICOLI
 INNER JOIN DEMO_SOTTOFAM ON I = SOTTOFAM
GO

-- Every tenth article is sold in several colours, every twentieth is described in English too.
INSERT INTO MG87_ARTDESC (MG87_DITTA_CG18, MG87_CODART_MG66, MG87_OPZIONE_MG5E, MG87_LINGUA_MG52, MG87_DESCART, MG87_DESCESTESA)
SELECT MG87_DITTA_CG18, MG87_CODART_MG66, MG5E_OPZIONE, '',
       MG87_DESCART + ' ' + MG5E_DESCR, MG87_DESCESTESA + ' Colore: ' + MG5E_DESCR + '.'
  FROM DEMO_ARTICOLI
 INNER JOIN MG87_ARTDESC ON MG87_DITTA_CG18 = DITTA AND MG87_CODART_MG66 = CODART
 INNER JOIN MG5E_OPZIONI ON MG5E_DITTA_CG18 = DITTA
 WHERE N % 10 = 4
GO

INSERT INTO MG87_ARTDESC (MG87_DITTA_CG18, MG87_CODART_MG66, MG87_OPZIONE_MG5E, MG87_LINGUA_MG52, MG87_DESCART)
SELECT DITTA, CODART, '', 'ENG', 'Article ' + CODART
  FROM DEMO_ARTICOLI
 WHERE N % 20 = 0
GO

-- Stock lies in two of the eight deposits, options in the first.
INSERT INTO MG70_GIACDEP (MG70_DITTA_CG18, MG70_CODART_MG66, MG70_OPZIONE_MG5E, MG70_DEPOS_MG58, MG70_QTAGIAC, MG70_QTAIMP, MG70_QTAORD)
SELECT DITTA, CODART, '', '0' + CAST(1 + (N + SALTO) % 8 AS varchar(1)), N * 13 % 200 + SALTO, N * 5 % 17, N % 4 * 25
  FROM DEMO_ARTICOLI
 CROSS JOIN (VALUES (0), (3)) AS S (SALTO)
GO

INSERT INTO MG70_GIACDEP (MG70_DITTA_CG18, MG70_CODART_MG66, MG70_OPZIONE_MG5E, MG70_DEPOS_MG58, MG70_QTAGIAC, MG70_QTAIMP, MG70_QTAORD)
SELECT DITTA, CODART, MG5E_OPZIONE, '01', N % 30, N % 3, 0
  FROM DEMO_ARTICOLI
 INNER JOIN MG5E_OPZIONI ON MG5E_DITTA_CG18 = DITTA
 WHERE N % 10 = 4
GO

INSERT INTO MG72_APPLICART (MG72_DITTA_CG18, MG72_CODART_MG66, MG72_CODAPPLIC_MG57)
SELECT DITTA, CODART, MG57_CODAPPLIC
  FROM DEMO_ARTICOLI
 INNER JOIN MG57_APPLICAZIONI ON MG57_DITTA_CG18 = DITTA
 WHERE (N % 5 = 0 AND MG57_CODAPPLIC IN ('INT', 'TAV'))
    OR (N % 7 = 0 AND MG57_CODAPPLIC IN ('EST', 'LEG'))
    OR (N % 35 = 0 AND MG57_CODAPPLIC = 'MUR')
GO

INSERT INTO MG73_ARTCLIFOR (MG73_DITTA_CG18, MG73_TIPOCF_CG44, MG73_CLIFOR_CG44, MG73_CODART_MG66, MG73_CODARTCF)
SELECT DITTA, 1, 1 + N % 19, CODART, 'F' + CAST(10000 + N AS varchar(5))
  FROM DEMO_ARTICOLI
 WHERE DITTA = 1
   AND N % 3 <> 2
GO

INSERT INTO PD18_ARTPROD (PD18_DITTA_CG18, PD18_CODART_MG66, PD18_INDPROVENIENZA, PD18_INDTIPOPROD)
SELECT DITTA, CODART, N % 3, CASE WHEN N % 10 = 0 THEN 1 ELSE 0 END
  FROM DEMO_ARTICOLI
 WHERE N % 2 = 0
GO

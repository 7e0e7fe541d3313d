-- 260 customers of company 1 (1001-1255 and 100001-100005), 60 of company 2 (501-560)
-- of which ten are known to company 1 too, and a few suppliers.

CREATE TABLE DEMO_COGNOMI (I int NOT NULL PRIMARY KEY, COGNOME varchar(20), SITO varchar(20), NOME varchar(20))
GO

INSERT INTO DEMO_COGNOMI (I, COGNOME, SITO, NOME)
VALUES ( 0, 'Albertini',  'albertini',  'Sergio'),   ( 1, 'Baldoni',    'baldoni',    'Lucia'),
       ( 2, 'Cantarini',  'cantarini',  'Piero'),    ( 3, 'D''Amico',   'damico',     'Rosa'),
       ( 4, 'Elisei',     'elisei',     'Nicolò'),   ( 5, 'Fantini',    'fantini',    'Mario'),
       ( 6, 'Galassi',    'galassi',    'Teresa'),   ( 7, 'Iacobelli',  'iacobelli',  'Guido'),
       ( 8, 'Lanzi',      'lanzi',      'Dario'),    ( 9, 'Mengoni',    'mengoni',    'Sara'),
       (10, 'Nardi',      'nardi',      'Fabio'),    (11, 'Orlandi',    'orlandi',    'Elena'),
       (12, 'Pallotta',   'pallotta',   'Bruno'),    (13, 'Quaglia',    'quaglia',    'Irene'),
       (14, 'Ricci',      'ricci',      'Carlo'),    (15, 'Santarelli', 'santarelli', 'Anna'),
       (16, 'Tombolini',  'tombolini',  'Luigi'),    (17, 'Ubaldi',     'ubaldi',     'Marta'),
       (18, 'Vitali',     'vitali',     'Enzo'),     (19, 'Zampa',      'zampa',      'Giulia'),
       (20, 'Dell''Orto', 'dellorto',   'Remo'),     (21, 'Fioretti',   'fioretti',   'Chiara'),
       (22, 'Grassi',     'grassi',     'Ivo'),      (23, 'Mosca',      'mosca',      'Paola')
GO

CREATE TABLE DEMO_CITTA (I int NOT NULL PRIMARY KEY, CAP varchar(8), CITTA varchar(40), PROV varchar(2),
                         MACROAREA varchar(3), AREA varchar(3), ZONA varchar(3))
GO

INSERT INTO DEMO_CITTA (I, CAP, CITTA, PROV, MACROAREA, AREA, ZONA)
VALUES ( 0, '60121', 'Ancona',            'AN', 'CEN', 'ADR', 'MAR'),
       ( 1, '20124', 'Milano',            'MI', 'NOR', 'OVE', 'LOM'),
       ( 2, '40121', 'Bologna',           'BO', 'NOR', 'TRI', 'EMR'),
       ( 3, '80134', 'Napoli',            'NA', 'SUD', 'PEN', 'CAM'),
       ( 4, '50122', 'Firenze',           'FI', 'CEN', 'TIR', 'TOS'),
       ( 5, '10121', 'Torino',            'TO', 'NOR', 'OVE', 'PIE'),
       ( 6, '47121', 'Forlì',             'FC', 'NOR', 'TRI', 'EMR'),
       ( 7, '70122', 'Bari',              'BA', 'SUD', 'PEN', 'PUG'),
       ( 8, '62012', 'Civitanova Marche', 'MC', 'CEN', 'ADR', 'MAR'),
       ( 9, '35121', 'Padova',            'PD', 'NOR', 'TRI', 'VEN'),
       (10, '00185', 'Roma',              'RM', 'CEN', 'TIR', 'LAZ'),
       (11, '90133', 'Palermo',           'PA', 'SUD', 'ISO', 'SIC'),
       (12, '16121', 'Genova',            'GE', 'NOR', 'OVE', 'LIG'),
       (13, '67100', 'L''Aquila',         'AQ', 'CEN', 'ADR', 'ABR'),
       (14, '09124', 'Cagliari',          'CA', 'SUD', 'ISO', 'SAR'),
       (15, '37121', 'Verona',            'VR', 'NOR', 'TRI', 'VEN')
GO

CREATE TABLE DEMO_INSEGNE (I int NOT NULL PRIMARY KEY, INSEGNA varchar(20), SITO varchar(20),
                           MACROCAT varchar(3), CATEG varchar(3), SOTTOCAT varchar(3))
GO

INSERT INTO DEMO_INSEGNE (I, INSEGNA, SITO, MACROCAT, CATEG, SOTTOCAT)
VALUES (0, 'Ferramenta',       'ferramenta',   'RIV', 'FER', 'NEG'),
       (1, 'Colorificio',      'colorificio',  'RIV', 'COL', 'NEG'),
       (2, 'Idraulica',        'idraulica',    'PRO', 'IDR', ''),
       (3, 'Casalinghi',       'casalinghi',   'RIV', 'CAS', ''),
       (4, 'Edil',             'edil',         'PRO', 'EDI', 'ART'),
       (5, 'Centro Brico',     'centrobrico',  'GDO', 'BRI', 'GRS'),
       (6, 'Utensileria',      'utensileria',  'RIV', 'FER', 'CAT'),
       (7, '',                 'posta',        'WEB', 'PRV', ''),
       (8, 'Impianti',         'impianti',     'PRO', 'ELE', '')
GO

-- Registry: 1-310 customers, 401-420 suppliers. Those without a sign are private persons.
INSERT INTO CG16_RAGSOANAG (CG16_CODICE, CG16_RAGSOANAG, CG16_NOME, CG16_COGNOME, CG16_PARTIVA, CG16_CODFISC,
                            CG16_INDIRIZZO, CG16_INDIRIZZO2, CG16_CAP, CG16_CITTA, CG16_PROV,
                            CG16_TELNUM, CG16_EMAIL, CG16_DATAULTMOD)
SELECT N,
       CASE WHEN INSEGNA = '' THEN COGNOME + ' ' + NOME
            WHEN N % 4 = 0    THEN INSEGNA + ' ' + COGNOME + ' S.r.l.'
            WHEN N % 4 = 1    THEN INSEGNA + ' ' + COGNOME + ' & Figli S.n.c.'
            WHEN N % 4 = 2    THEN INSEGNA + ' di ' + COGNOME + ' ' + NOME
            ELSE                   INSEGNA + ' ' + COGNOME + ' S.p.A.'
       END,
       CASE WHEN INSEGNA = '' OR N % 4 = 2 THEN NOME END,
       CASE WHEN INSEGNA = '' OR N % 4 = 2 THEN COGNOME END,
       CASE WHEN INSEGNA = '' THEN '' ELSE CAST(1000000 + N * 3137 AS varchar(7)) + '042' + CAST(N % 10 AS varchar(1)) END,
       CASE WHEN INSEGNA = ''
            THEN UPPER(LEFT(CO.SITO, 3)) + UPPER(LEFT(NOME, 3)) + CAST(40 + N % 50 AS varchar(2)) + 'C'
                 + CAST(10 + N % 20 AS varchar(2)) + 'A' + CAST(200 + N % 300 AS varchar(3)) + 'X'
            ELSE CAST(1000000 + N * 3137 AS varchar(7)) + '042' + CAST(N % 10 AS varchar(1))
       END,
       VIA + ', ' + CAST(1 + N * 7 % 140 AS varchar(3)),
       CASE WHEN N % 12 = 0 THEN 'Zona industriale' END,
       CAP, CITTA, PROV,
       '0' + CAST(71 + N % 9 AS varchar(2)) + ' 555' + RIGHT('000' + CAST(N AS varchar(4)), 4),
       CASE WHEN N % 9 = 0   THEN NULL
            WHEN N % 40 = 17 THEN ''
            WHEN INSEGNA = '' THEN LOWER(LEFT(NOME, 1)) + '.' + CO.SITO + '@posta.example'
            ELSE 'info@' + INS.SITO + CO.SITO + '.example'
       END,
       DATEADD(day, N % 365, '20230101')
  FROM DEMO_NUMERI
 INNER JOIN DEMO_COGNOMI CO  ON CO.I = (N * 7 + N / 24) % 24
 INNER JOIN DEMO_INSEGNE INS ON INS.I = N % 9
 INNER JOIN DEMO_CITTA CI    ON CI.I = (N + N / 16) % 16
 INNER JOIN (VALUES (0, 'Via Garibaldi'), (1, 'Corso Matteotti'), (2, 'Via dell''Artigianato'),
                    (3, 'Piazza Roma'),   (4, 'Via I Maggio'),    (5, 'Viale della Vittoria'),
                    (6, 'Via Leopardi'),  (7, 'Via del Porto')) AS V (I, VIA) ON V.I = N * 3 % 8
 WHERE N <= 310
GO

INSERT INTO CG44_CLIFOR (CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, CG44_IDCLIFOR, CG44_CODICE_CG16, CG44_NUMLIST_MG44)
SELECT 1, 0, CASE WHEN N > 255 THEN 99745 + N ELSE 1000 + N END, 10000 + N, N,
       CASE WHEN N % 9 IN (0, 1, 3, 6) THEN 2 ELSE 1 END
  FROM DEMO_NUMERI
 WHERE N <= 260
GO

INSERT INTO CG44_CLIFOR (CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, CG44_IDCLIFOR, CG44_CODICE_CG16, CG44_NUMLIST_MG44)
SELECT 2, 0, 500 + N, 20000 + N, CASE WHEN N <= 10 THEN N ELSE 250 + N END, 1
  FROM DEMO_NUMERI
 WHERE N <= 60
GO

INSERT INTO MG19_CLASSCLIFOR (MG19_DITTA_CG18, MG19_TIPOCF_CG44, MG19_CLIFOR_CG44,
                              MG19_MACROAREA, MG19_AREA, MG19_ZONA, MG19_MACROCAT, MG19_CATEG, MG19_SOTTOCAT,
                              MG19_RAGGRCF1, MG19_RAGGRCF2, MG19_RAGGCRF3, MG19_AGENTE_MG17)
SELECT CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR,
       MACROAREA, AREA, CASE WHEN CG44_CODICE_CG16 % 10 = 6 THEN '' ELSE ZONA END,
       MACROCAT, CATEG, SOTTOCAT,
       CASE CG44_CODICE_CG16 % 5 WHEN 0 THEN 'ORO' WHEN 1 THEN 'ARG' WHEN 2 THEN 'BRO' ELSE '' END,
       CASE CG44_CODICE_CG16 % 3 WHEN 0 THEN 'RBA' WHEN 1 THEN 'BON' ELSE 'CON' END,
       CASE CG44_CODICE_CG16 % 4 WHEN 0 THEN 'AUT' WHEN 1 THEN 'RIT' ELSE 'COR' END,
       'A0' + CAST(1 + CG44_CODICE_CG16 % 6 AS varchar(1))
  FROM CG44_CLIFOR
 INNER JOIN DEMO_CITTA   CI  ON CI.I = (CG44_CODICE_CG16 + CG44_CODICE_CG16 / 16) % 16
 INNER JOIN DEMO_INSEGNE INS ON INS.I = CG44_CODICE_CG16 % 9
 WHERE CG44_DITTA_CG18 = 1
GO

INSERT INTO MG19_CLASSCLIFOR (MG19_DITTA_CG18, MG19_TIPOCF_CG44, MG19_CLIFOR_CG44, MG19_MACROAREA, MG19_AREA, MG19_ZONA,
                              MG19_MACROCAT, MG19_CATEG, MG19_SOTTOCAT, MG19_RAGGRCF1, MG19_AGENTE_MG17)
SELECT CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR,
       'NOR', CASE WHEN CG44_CLIFOR % 2 = 0 THEN 'LAG' ELSE 'MIL' END, CASE WHEN CG44_CLIFOR % 2 = 0 THEN 'COM' ELSE 'BRI' END,
       CASE WHEN CG44_CLIFOR % 3 = 0 THEN 'WEB' ELSE 'RIV' END, CASE WHEN CG44_CLIFOR % 3 = 0 THEN 'PRV' ELSE 'CAS' END, '',
       CASE WHEN CG44_CLIFOR % 4 = 0 THEN 'TES' ELSE '' END,
       'B0' + CAST(1 + CG44_CLIFOR % 2 AS varchar(1))
  FROM CG44_CLIFOR
 WHERE CG44_DITTA_CG18 = 2
GO

-- Every third customer has goods sent elsewhere, some to two places.
INSERT INTO MG2A_DESTINAZ (MG2A_DITTA_CG18, MG2A_TIPOCF_CG44, MG2A_CLIFOR_CG44, MG2A_CODDEST,
                           MG2A_NOME, MG2A_COGNOME, MG2A_RAGSOC, MG2A_INDIRIZZO, MG2A_INDIRIZZO2)
SELECT CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, DEST,
       CG16_NOME, CG16_COGNOME,
       CASE DEST WHEN 1 THEN 'Magazzino ' + CG16_CITTA ELSE 'Cantiere ' + CG16_CITTA END,
       'Strada Provinciale, ' + CAST(CG44_CLIFOR % 50 + 1 AS varchar(2)),
       CG16_CAP + ' ' + CG16_CITTA + ' (' + CG16_PROV + ')'
  FROM CG44_CLIFOR
 INNER JOIN CG16_RAGSOANAG ON CG16_CODICE = CG44_CODICE_CG16
 INNER JOIN (VALUES (1, 3), (2, 15)) AS D (DEST, OGNI) ON CG44_CLIFOR % OGNI = 0
 WHERE CG44_TIPOCF = 0
GO

-- Suppliers. The last one bears the code of a customer.
INSERT INTO CG16_RAGSOANAG (CG16_CODICE, CG16_RAGSOANAG, CG16_PARTIVA, CG16_INDIRIZZO, CG16_CAP, CG16_CITTA, CG16_PROV,
                            CG16_EMAIL, CG16_DATAULTMOD)
SELECT 400 + N, 'Officine ' + COGNOME + ' S.p.A.', CAST(2000000 + N * 3137 AS varchar(7)) + '0421',
       'Via della Meccanica, ' + CAST(N AS varchar(2)), CAP, CITTA, PROV,
       'vendite@officine' + CO.SITO + '.example', '20230601'
  FROM DEMO_NUMERI
 INNER JOIN DEMO_COGNOMI CO ON CO.I = N
 INNER JOIN DEMO_CITTA CI   ON CI.I = N % 16
 WHERE N <= 20
GO

INSERT INTO CG44_CLIFOR (CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, CG44_IDCLIFOR, CG44_CODICE_CG16)
SELECT 1, 1, CASE WHEN N = 20 THEN 1001 ELSE N END, 30000 + N, 400 + N
  FROM DEMO_NUMERI
 WHERE N <= 20
GO

-- Price lists of every kind. Each statement multiplies articles, customers or family
-- paths by a small table whose rows say: every OGNI-th one (remainder RESTO), the
-- validity, price factor and flags. Each kind has rows valid for ever, expired in
-- 2019, starting in 2090, and rows that a flag or a foreign currency excludes.

INSERT INTO LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66, LI10_OPZIONE_MG5E, LI10_NUMLIST, LI10_INDTIPOLIS, LI10_DEPOS_MG58,
                            LI10_FLGVENDACQ, LI10_FLGUSODECOR, LI10_CODICE_CG08, LI10_DATAINIZIOVAL, LI10_DATAFINEVAL,
                            LI10_PREZZO, LI10_SC1PER)
SELECT DITTA, CODART, '', LISTINO, 0, '', ACQ, DECOR, VALUTA, INIZIO, FINE, PREZZO * FATTORE, CASE WHEN SC < 0 THEN SCONTO ELSE SC END
  FROM DEMO_ARTICOLI
 INNER JOIN (VALUES (1,  1, 0, 1, 0, 'EURO', '20200101', '20991231', 1.00, -1),
                    (2,  2, 0, 0, 0, 'EURO', '20200101', '20991231', 0.85, 5),
                    (3, 10, 0, 0, 0, 'EURO', '20200101', '20991231', 1.22, 0),
                    (4, 25, 0, 0, 0, 'USD',  '20200101', '20991231', 1.08, -1),
                    (1,  1, 0, 0, 0, 'EURO', '20200101', '20991231', 1.00, -1),
                    (1, 20, 1, 0, 0, 'EURO', '20180101', '20191231', 0.95, 0),
                    (1, 20, 2, 0, 0, 'EURO', '20900101', '20991231', 1.10, -1),
                    (1, 50, 3, 0, 0, 'EURO', '20230101', '20801231', 1.05, 20),
                    (1, 40, 5, 0, 1, 'EURO', '20200101', '20991231', 1.15, -1)
             ) AS R (LISTINO, OGNI, RESTO, ACQ, DECOR, VALUTA, INIZIO, FINE, FATTORE, SC)
    ON N % OGNI = RESTO
   AND (ACQ = 0 OR N % 4 = 0)
   AND (DITTA = 1 OR LISTINO = 1)
GO

-- Company 2's wholesale list, and the options of company 1.
INSERT INTO LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66, LI10_OPZIONE_MG5E, LI10_NUMLIST, LI10_INDTIPOLIS, LI10_DEPOS_MG58,
                            LI10_FLGVENDACQ, LI10_FLGUSODECOR, LI10_CODICE_CG08, LI10_DATAINIZIOVAL, LI10_DATAFINEVAL,
                            LI10_PREZZO, LI10_SC1PER)
SELECT DITTA, CODART, '', 10, 0, '', 0, 0, 'EURO', '20200101', '20991231', PREZZO * 0.7, SCONTO
  FROM DEMO_ARTICOLI
 WHERE DITTA = 2
   AND N % 3 = 0
GO

INSERT INTO LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66, LI10_OPZIONE_MG5E, LI10_NUMLIST, LI10_INDTIPOLIS, LI10_DEPOS_MG58,
                            LI10_FLGVENDACQ, LI10_FLGUSODECOR, LI10_CODICE_CG08, LI10_DATAINIZIOVAL, LI10_DATAFINEVAL,
                            LI10_PREZZO, LI10_SC1PER)
SELECT DITTA, CODART, 'BIA', 1, 0, '', 0, 0, 'EURO', '20200101', '20991231', PREZZO + 1.5, SCONTO
  FROM DEMO_ARTICOLI
 WHERE DITTA = 1
   AND N % 10 = 4
GO

-- By deposit. The last row names no deposit, as an unfinished entry would.
INSERT INTO LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66, LI10_OPZIONE_MG5E, LI10_NUMLIST, LI10_INDTIPOLIS, LI10_DEPOS_MG58,
                            LI10_FLGVENDACQ, LI10_FLGUSODECOR, LI10_CODICE_CG08, LI10_DATAINIZIOVAL, LI10_DATAFINEVAL,
                            LI10_PREZZO, LI10_SC1PER)
SELECT DITTA, CODART, '', LISTINO, 1, DEPOSITO, 0, DECOR, 'EURO', INIZIO, FINE, PREZZO * FATTORE, SCONTO
  FROM DEMO_ARTICOLI
 INNER JOIN (VALUES (1, 10,  0, '02', 0, '20200101', '20991231', 0.97),
                    (1, 10,  5, '05', 0, '20200101', '20991231', 0.93),
                    (2, 25,  7, '02', 0, '20200101', '20991231', 0.80),
                    (1, 50, 11, '03', 0, '20180101', '20191231', 0.90),
                    (1, 50, 12, '03', 0, '20900101', '20991231', 0.99),
                    (1, 50, 13, '03', 1, '20200101', '20991231', 0.98),
                    (1, 50, 14, '',   0, '20200101', '20991231', 0.96)
             ) AS R (LISTINO, OGNI, RESTO, DEPOSITO, DECOR, INIZIO, FINE, FATTORE)
    ON N % OGNI = RESTO
   AND (DITTA = 1 OR LISTINO = 1)
GO

INSERT INTO LI12_LISTARTZONE (LI12_DITTA_CG18, LI12_CODART_MG66, LI12_OPZIONE_MG5E, LI12_MACROAREA_MG07, LI12_AREA_MG08, LI12_ZONA_MG09,
                              LI12_FLGVENDACQ, LI12_FLGUSODECOR, LI12_CODICE_CG08, LI12_DATAINIZIOVAL, LI12_DATAFINEVAL,
                              LI12_PREZZO, LI12_SC1PER)
SELECT DITTA, CODART, OPZIONE, MACROAREA, AREA, ZONA, ACQ, DECOR, VALUTA, INIZIO, FINE, PREZZO * FATTORE, SCONTO
  FROM DEMO_ARTICOLI
 INNER JOIN (VALUES (1, 20,  0, '',    'NOR', '',    '',    0, 0, 'EURO', '20200101', '20991231', 0.98),
                    (1, 25,  1, '',    'CEN', '',    '',    0, 0, 'EURO', '20200101', '20991231', 1.01),
                    (1, 40,  2, '',    'NOR', 'TRI', '',    0, 0, 'EURO', '20200101', '20991231', 0.96),
                    (1, 40,  3, '',    'CEN', 'ADR', 'MAR', 0, 0, 'EURO', '20200101', '20991231', 0.95),
                    (1, 100, 4, 'NER', 'SUD', 'ISO', 'SIC', 0, 0, 'EURO', '20200101', '20991231', 1.08),
                    (1, 50,  5, '',    'SUD', '',    '',    0, 0, 'EURO', '20180101', '20191231', 1.02),
                    (1, 50,  6, '',    'SUD', '',    '',    0, 0, 'EURO', '20900101', '20991231', 1.02),
                    (1, 50,  7, '',    'SUD', '',    '',    0, 1, 'EURO', '20200101', '20991231', 1.02),
                    (1, 50,  8, '',    'NOR', '',    '',    1, 0, 'EURO', '20200101', '20991231', 0.60),
                    (1, 50,  9, '',    'EST', 'UEU', '',    0, 0, 'CHF',  '20200101', '20991231', 1.03),
                    (2, 20,  0, '',    'RES', '',    '',    0, 0, 'EURO', '20200101', '20991231', 1.05),
                    (2, 20,  1, '',    'NOR', 'LAG', 'COM', 0, 0, 'EURO', '20200101', '20991231', 0.99)
             ) AS R (AZIENDA, OGNI, RESTO, OPZIONE, MACROAREA, AREA, ZONA, ACQ, DECOR, VALUTA, INIZIO, FINE, FATTORE)
    ON AZIENDA = DITTA
   AND N % OGNI = RESTO
GO

INSERT INTO LI13_LISTARTCAT (LI13_DITTA_CG18, LI13_CODART_MG66, LI13_OPZIONE_MG5E, LI13_MACROCAT_MG10, LI13_CATEG_MG11, LI13_SOTTCAT_MG12,
                             LI13_FLGVENDACQ, LI13_FLGUSODECOR, LI13_CODICE_CG08, LI13_DATAINIZIOVAL, LI13_DATAFINEVAL,
                             LI13_PREZZO, LI13_SC1PER)
SELECT DITTA, CODART, OPZIONE, MACROCAT, CATEG, SOTTOCAT, ACQ, DECOR, VALUTA, INIZIO, FINE, PREZZO * FATTORE, SCONTO
  FROM DEMO_ARTICOLI
 INNER JOIN (VALUES (1, 20,  1, '',    'RIV', '',    '',    0, 0, 'EURO', '20200101', '20991231', 0.88),
                    (1, 25,  3, '',    'GDO', '',    '',    0, 0, 'EURO', '20200101', '20991231', 0.82),
                    (1, 40,  5, '',    'RIV', 'FER', '',    0, 0, 'EURO', '20200101', '20991231', 0.86),
                    (1, 40,  7, '',    'PRO', 'EDI', 'ART', 0, 0, 'EURO', '20200101', '20991231', 0.91),
                    (1, 100, 4, 'ROS', 'WEB', 'PRV', '',    0, 0, 'EURO', '20200101', '20991231', 1.10),
                    (1, 50,  9, '',    'PRO', '',    '',    0, 0, 'EURO', '20180101', '20191231', 0.90),
                    (1, 50, 11, '',    'PRO', '',    '',    0, 0, 'EURO', '20900101', '20991231', 0.90),
                    (1, 50, 13, '',    'PRO', '',    '',    0, 1, 'EURO', '20200101', '20991231', 0.90),
                    (1, 50, 15, '',    'RIV', '',    '',    1, 0, 'EURO', '20200101', '20991231', 0.55),
                    (1, 50, 17, '',    'WEB', '',    '',    0, 0, 'USD',  '20200101', '20991231', 1.09),
                    (2, 20,  3, '',    'RIV', '',    '',    0, 0, 'EURO', '20200101', '20991231', 0.80)
             ) AS R (AZIENDA, OGNI, RESTO, OPZIONE, MACROCAT, CATEG, SOTTOCAT, ACQ, DECOR, VALUTA, INIZIO, FINE, FATTORE)
    ON AZIENDA = DITTA
   AND N % OGNI = RESTO
GO

-- Quantity steps. DEMO_SCAGLIONI numbers fourteen of them: a price list may well have
-- more steps than a platform's rule can hold.
CREATE TABLE DEMO_SCAGLIONI (S int NOT NULL PRIMARY KEY, DAQTA decimal(18,3), SCONTO decimal(5,2))
GO

INSERT INTO DEMO_SCAGLIONI (S, DAQTA, SCONTO)
VALUES ( 1,    1,  0   ), ( 2,    5,  2.5 ), ( 3,   10,  5   ), ( 4,   25,  7.5 ), ( 5,   50, 10   ),
       ( 6,  100, 12   ), ( 7,  150, 14   ), ( 8,  200, 16.66), ( 9,  300, 18   ), (10,  500, 20   ),
       (11,  750, 22.5 ), (12, 1000, 25   ), (13, 2500, 30   ), (14, 5000, 33.33)
GO

INSERT INTO LI14_LISTARTQTA (LI14_DITTA_CG18, LI14_CODART_MG66, LI14_OPZIONE_MG5E, LI14_NUMLISTUTIL, LI14_DAQTA,
                             LI14_FLGVENDACQ, LI14_FLGUSODECOR, LI14_CODICE_CG08, LI14_DATAINIZIOVAL, LI14_DATAFINEVAL,
                             LI14_PREZZO, LI14_SC1PER)
SELECT A.DITTA, A.CODART, OPZIONE, LISTINO, S.DAQTA, ACQ, DECOR, VALUTA, INIZIO, FINE, A.PREZZO * (1 - 0.01 * S.S), S.SCONTO
  FROM DEMO_ARTICOLI A
 INNER JOIN (VALUES (1, 16,  0, '',    1,  4, 0, 0, 'EURO', '20200101', '20991231'),
                    (1, 50,  1, '',    1, 12, 0, 0, 'EURO', '20200101', '20991231'),
                    (1, 50,  6, '',    2,  3, 0, 0, 'EURO', '20200101', '20991231'),
                    (1, 100, 4, 'BIA', 1,  5, 0, 0, 'EURO', '20200101', '20991231'),
                    (1, 100, 8, '',    1,  3, 0, 0, 'EURO', '20180101', '20191231'),
                    (1, 100, 9, '',    1,  3, 0, 0, 'EURO', '20900101', '20991231'),
                    (1, 100, 10, '',   1,  3, 0, 1, 'EURO', '20200101', '20991231'),
                    (1, 100, 11, '',   1,  3, 1, 0, 'EURO', '20200101', '20991231'),
                    (1, 100, 12, '',   4,  3, 0, 0, 'USD',  '20200101', '20991231'),
                    (2, 30,  2, '',    1, 14, 0, 0, 'EURO', '20200101', '20991231')
             ) AS R (AZIENDA, OGNI, RESTO, OPZIONE, LISTINO, PASSI, ACQ, DECOR, VALUTA, INIZIO, FINE)
    ON AZIENDA = A.DITTA
   AND A.N % OGNI = RESTO
 INNER JOIN DEMO_SCAGLIONI S ON S.S <= PASSI
GO

-- Customer prices: the K-th customer of a company has its own for an article of number K * PER + PIU.
CREATE TABLE DEMO_CLIENTI (DITTA decimal(5,0) NOT NULL, K int NOT NULL, CLIFOR int, PRIMARY KEY (DITTA, K))
GO

INSERT INTO DEMO_CLIENTI (DITTA, K, CLIFOR)
SELECT CG44_DITTA_CG18, ROW_NUMBER() OVER (PARTITION BY CG44_DITTA_CG18 ORDER BY CG44_CLIFOR), CG44_CLIFOR
  FROM CG44_CLIFOR
 WHERE CG44_TIPOCF = 0
GO

INSERT INTO LI15_LISTARTCFQTA (LI15_DITTA_CG18, LI15_TIPOCF_CG44, LI15_CLIFOR_CG44, LI15_CODART_MG66, LI15_OPZIONE_MG5E, LI15_DAQTA,
                               LI15_FLGLIST, LI15_FLGUSODECOR, LI15_CODICE_CG08, LI15_DATAINIZIOVAL, LI15_DATAFINEVAL,
                               LI15_PREZZO, LI15_SC1PER)
SELECT C.DITTA, TIPOCF, CLIFOR, CODART, OPZIONE, S.DAQTA, LIST, DECOR, VALUTA, INIZIO, FINE, PREZZO * (1 - 0.015 * S.S), S.SCONTO
  FROM DEMO_CLIENTI C
 INNER JOIN (VALUES (1, 10,  1, 3,  1, '',    0,  4, 1, 0, 'EURO', '20200101', '20991231'),
                    (1, 25,  2, 3,  0, '',    0, 14, 1, 0, 'EURO', '20200101', '20991231'),
                    (1, 50,  4, 1, 10, 'ROS', 0,  3, 1, 0, 'EURO', '20200101', '20991231'),
                    (1, 50,  5, 2,  1, '',    0,  3, 1, 0, 'EURO', '20180101', '20191231'),
                    (1, 50,  6, 2,  1, '',    0,  3, 1, 0, 'EURO', '20900101', '20991231'),
                    (1, 50,  7, 2,  1, '',    0,  3, 0, 0, 'EURO', '20200101', '20991231'),
                    (1, 50,  8, 2,  1, '',    0,  3, 1, 1, 'EURO', '20200101', '20991231'),
                    (1, 50,  9, 2,  1, '',    0,  3, 1, 0, 'CHF',  '20200101', '20991231'),
                    (1, 250, 1, 2,  5, '',    1,  3, 1, 0, 'EURO', '20200101', '20991231'),
                    (2, 30,  1, 1,  1, '',    0,  3, 1, 0, 'EURO', '20200101', '20991231')
             ) AS R (AZIENDA, OGNI, RESTO, PER, PIU, OPZIONE, TIPOCF, PASSI, LIST, DECOR, VALUTA, INIZIO, FINE)
    ON AZIENDA = C.DITTA
   AND K % OGNI = RESTO
 INNER JOIN DEMO_ARTICOLI A  ON A.DITTA = C.DITTA AND A.N = K * PER + PIU
 INNER JOIN DEMO_SCAGLIONI S ON S.S <= PASSI
GO

INSERT INTO LI16_LISTARTCF (LI16_DITTA_CG18, LI16_TIPOCF_CG44, LI16_CLIFOR_CG44, LI16_CODART_MG66, LI16_OPZIONE_MG5E,
                            LI16_FLGLIST, LI16_FLGUSODECOR, LI16_CODICE_CG08, LI16_DATAINIZIOVAL, LI16_DATAFINEVAL,
                            LI16_PREZZO, LI16_SC1PER)
SELECT C.DITTA, TIPOCF, CLIFOR, CODART, OPZIONE, LIST, 0, VALUTA, INIZIO, FINE, PREZZO * FATTORE, SCONTO
  FROM DEMO_CLIENTI C
 INNER JOIN (VALUES (1,  2,  1, 3,   0, '',    0, 1, 'EURO', '20200101', '20991231', 0.90),
                    (1,  5,  1, 1, 200, '',    0, 1, 'EURO', '20200101', '20991231', 0.87),
                    (1, 10,  1, 1, 400, '',    0, 1, 'EURO', '20200101', '20991231', 1.00),
                    (1, 50,  4, 1,  10, 'BIA', 0, 1, 'EURO', '20200101', '20991231', 0.95),
                    (1, 20,  1, 3,   0, '',    0, 1, 'EURO', '20220301', '20851231', 0.92),
                    (1, 20,  2, 2,   1, '',    0, 1, 'EURO', '20180101', '20191231', 0.90),
                    (1, 20,  3, 2,   1, '',    0, 1, 'EURO', '20900101', '20991231', 0.90),
                    (1, 20,  4, 2,   1, '',    0, 0, 'EURO', '20200101', '20991231', 0.90),
                    (1, 50,  5, 2,   1, '',    1, 1, 'EURO', '20200101', '20991231', 0.50),
                    (1, 50,  6, 2,   1, '',    0, 1, 'USD',  '20200101', '20991231', 1.08),
                    (2, 10,  1, 1,   3, '',    0, 1, 'EURO', '20200101', '20991231', 0.75)
             ) AS R (AZIENDA, OGNI, RESTO, PER, PIU, OPZIONE, TIPOCF, LIST, VALUTA, INIZIO, FINE, FATTORE)
    ON AZIENDA = C.DITTA
   AND K % OGNI = RESTO
 INNER JOIN DEMO_ARTICOLI A ON A.DITTA = C.DITTA AND A.N = K * PER + PIU
GO

-- Family paths of every depth, as the articles have them.
CREATE TABLE DEMO_PERCORSI (P int NOT NULL PRIMARY KEY, LIVELLO int, FAM varchar(15), SFAM varchar(15), GRUPPO varchar(15), SGRUPPO varchar(15))
GO

INSERT INTO DEMO_PERCORSI (P, LIVELLO, FAM, SFAM, GRUPPO, SGRUPPO)
SELECT I * 5 + LIV, LIV, FAM,
       CASE WHEN LIV > 1 THEN SFAM ELSE '' END,
       CASE WHEN LIV IN (3, 4) THEN 'G' + CAST(1 + I % 3 AS varchar(1)) ELSE '' END,
       CASE WHEN LIV > 3 THEN 'S' + CAST(1 + I % 2 AS varchar(1)) ELSE '' END
  FROM DEMO_SOTTOFAM
 CROSS JOIN (VALUES (1), (2), (3), (4), (5)) AS L (LIV)
 WHERE LIV > 1
    OR I % 4 = 0
GO

INSERT INTO LI18_LISTCFCODP (LI18_DITTA_CG18, LI18_TIPOCF_CG44, LI18_CLIFOR_CG44, LI18_AFAM_MG53, LI18_ASFAM_MG54, LI18_AGRUP_MG55, LI18_ASGRUP_MG56,
                             LI18_FLGLIST, LI18_FLGUSODECOR, LI18_CODICE_CG08, LI18_DATAINIZIOVAL, LI18_DATAFINEVAL,
                             LI18_PREZZO, LI18_SC1PER)
SELECT DITTA, TIPOCF, CLIFOR, FAM, SFAM, GRUPPO, SGRUPPO, LIST, DECOR, VALUTA, INIZIO, FINE, IMPORTO, SC
  FROM DEMO_CLIENTI
 INNER JOIN (VALUES (1,  4,  1, 0, 1, 0, 'EURO', '20200101', '20991231',  0,         12.5 ),
                    (1, 10,  2, 0, 1, 0, 'EURO', '20200101', '20991231', 19.90,      10   ),
                    (1, 50,  3, 0, 1, 0, 'EURO', '20200101', '20991231',  0.333333,  33.33),
                    (1, 25,  6, 0, 1, 0, 'EURO', '20180101', '20191231',  0,          8   ),
                    (1, 25,  7, 0, 1, 0, 'EURO', '20900101', '20991231',  0,          9   ),
                    (1, 25,  8, 0, 0, 0, 'EURO', '20200101', '20991231',  0,         11   ),
                    (1, 25,  9, 0, 1, 1, 'EURO', '20200101', '20991231',  0,         13   ),
                    (1, 50, 10, 1, 1, 0, 'EURO', '20200101', '20991231',  0,         40   ),
                    (1, 50, 11, 0, 1, 0, 'USD',  '20200101', '20991231', 21.58,      10   ),
                    (2, 15,  1, 0, 1, 0, 'EURO', '20200101', '20991231',  0,         10   )
             ) AS R (AZIENDA, OGNI, RESTO, TIPOCF, LIST, DECOR, VALUTA, INIZIO, FINE, IMPORTO, SC)
    ON AZIENDA = DITTA
   AND K % OGNI = RESTO
 INNER JOIN DEMO_PERCORSI ON P = 1 + K * 3 % 160
GO

INSERT INTO LI33_LISTCODP (LI33_DITTA_CG18, LI33_AFAM_MG53, LI33_ASFAM_MG54, LI33_AGRUP_MG55, LI33_ASGRUP_MG56, LI33_NUMLIST, LI33_INDTIPOLIS,
                           LI33_FLGVENDACQ, LI33_FLGUSODECOR, LI33_CODICE_CG08, LI33_DATAINIZIOVAL, LI33_DATAFINEVAL,
                           LI33_PREZZO, LI33_SC1PER)
SELECT AZIENDA, FAM, SFAM, GRUPPO, SGRUPPO, 1, TIPO, ACQ, DECOR, VALUTA, INIZIO, FINE, IMPORTO, SC
  FROM DEMO_PERCORSI
 INNER JOIN (VALUES (1,  2,  0, 0, 0, 0, 'EURO', '20200101', '20991231',  0,        15   ),
                    (1,  3,  1, 0, 0, 0, 'EURO', '20200101', '20991231', 19.90,     10   ),
                    (1, 10,  5, 0, 0, 0, 'EURO', '20180101', '20191231',  0,        20   ),
                    (1, 10,  4, 0, 0, 0, 'EURO', '20900101', '20991231',  0,        25   ),
                    (1, 10,  7, 1, 0, 0, 'EURO', '20200101', '20991231',  0,        30   ),
                    (1, 10,  8, 0, 1, 0, 'EURO', '20200101', '20991231',  0,        35   ),
                    (1, 10,  9, 0, 0, 1, 'EURO', '20200101', '20991231',  0,        40   ),
                    (1, 10,  3, 0, 0, 0, 'CHF',  '20200101', '20991231',  9.731,     5   ),
                    (2,  8,  1, 0, 0, 0, 'EURO', '20200101', '20991231',  0,        12.5 )
             ) AS R (AZIENDA, OGNI, RESTO, TIPO, ACQ, DECOR, VALUTA, INIZIO, FINE, IMPORTO, SC)
    ON P % OGNI = RESTO
GO

INSERT INTO LI34_LISTCODPQTA (LI34_DITTA_CG18, LI34_FAM_MG53, LI34_SFAM_MG54, LI34_GRUP_MG55, LI34_SGRUP_MG56, LI34_DAQTA,
                              LI34_FLGVENDACQ, LI34_FLGUSODECOR, LI34_CODICE_CG08, LI34_DATAINIZIOVAL, LI34_DATAFINEVAL,
                              LI34_PREZZO, LI34_SC1PER)
SELECT AZIENDA, FAM, SFAM, GRUPPO, SGRUPPO, DAQTA, ACQ, DECOR, VALUTA, INIZIO, FINE, IMPORTO * (1 - 0.01 * S), SCONTO
  FROM DEMO_PERCORSI
 INNER JOIN (VALUES (1,  8, 1,  5, 0, 0, 'EURO', '20200101', '20991231', 19.90),
                    (1, 20, 4, 12, 0, 0, 'EURO', '20200101', '20991231',  0   ),
                    (1, 40, 5,  3, 0, 0, 'EURO', '20180101', '20191231',  0   ),
                    (1, 40, 4,  3, 0, 0, 'EURO', '20900101', '20991231',  0   ),
                    (1, 40, 7,  3, 1, 0, 'EURO', '20200101', '20991231',  0   ),
                    (1, 40, 8,  3, 0, 1, 'EURO', '20200101', '20991231',  0   ),
                    (1, 40, 3,  3, 0, 0, 'USD',  '20200101', '20991231', 21.58),
                    (2, 40, 2,  4, 0, 0, 'EURO', '20200101', '20991231', 12.20)
             ) AS R (AZIENDA, OGNI, RESTO, PASSI, ACQ, DECOR, VALUTA, INIZIO, FINE, IMPORTO)
    ON P % OGNI = RESTO
 INNER JOIN DEMO_SCAGLIONI ON S <= PASSI
GO

-- What every installation has before its first company: the connector's activities
-- and classifications, the article states, the currency of account.

INSERT INTO GM01_ATTIVITA (GM01_IDAPPLICAZIONE, GM01_IDATTIVITA, GM01_DESCRIZIONE, GM01_INDFUNZIONE, GM01_FLGDIFF)
VALUES (14, 1, 'Esportazione categorie',        1, 1),
       (14, 2, 'Esportazione clienti',          2, 1),
       (14, 3, 'Esportazione articoli',         2, 1),
       (14, 4, 'Esportazione listini',          2, 1),
       (14, 5, 'Esportazione giacenze',         2, 0),
       (14, 6, 'Esportazione regole di sconto', 2, NULL),
       (14, 7, 'Esportazione immagini',         1, 0),
       (14, 8, 'Importazione ordini',           3, 1),
       (11, 1, 'Esportazione agenti',           2, 1),
       (11, 2, 'Importazione visite',           3, 0)
GO

INSERT INTO GM13_TIPISINCRO (GM13_IDAPPLICAZIONE, GM13_CODICE, GM13_DESCRIZIONE)
VALUES (11, 1, 'Tablet'),
       (11, 2, 'Telefono')
GO

INSERT INTO GM23_CLASSIFICAZIONI (GM23_INDENTITA, GM23_CODICE, GM23_DESCRIZIONE, GM23_INDCODAGG, GM23_SEQUENZA, GM23_FLGDISABLED)
VALUES (1,  4, 'Macrocategoria',               0,  10, 0),
       (1,  5, 'Categoria',                    0,  20, 0),
       (1,  6, 'Sottocategoria',               0,  30, 0),
       (1,  1, 'Macroarea',                    0,  40, 0),
       (1,  2, 'Area',                         0,  50, 0),
       (1,  3, 'Zona',                         0,  60, 0),
       (1,  7, 'Raggruppamento 1',             0,  70, 0),
       (1,  8, 'Raggruppamento 2',             0,  80, 0),
       (1,  9, 'Raggruppamento 3',             0,  90, 0),
       (1, 10, 'Agente',                       0, 100, 0),
       (1, 11, 'Attributo cliente',            1, 110, 0),
       (1, 12, 'Gruppo di acquisto',           0, 120, 1),
       (2,  1, 'Macroarea fornitori',          0,  10, 0),
       (2,  4, 'Macrocategoria fornitori',     0,  20, 0),
       (3,  1, 'Famiglia',                     0,  10, 0),
       (3,  2, 'Sottofamiglia',                0,  20, 0),
       (3,  3, 'Gruppo',                       0,  30, 0),
       (3,  4, 'Sottogruppo',                  0,  40, 0),
       (3,  5, 'Marca',                        0,  50, 0),
       (3,  6, 'Gruppo statistico 1',          0,  60, 0),
       (3,  7, 'Gruppo statistico 2',          0,  70, 0),
       (3,  8, 'Gruppo statistico 3',          0,  80, 0),
       (3,  9, 'Gruppo statistico 4',          0,  90, 0),
       (3, 10, 'Classe di sconto',             0, 100, 0),
       (3, 11, 'Variante configuratore',       1, 110, 0),
       (3, 12, 'Valore variante',              1, 120, 0),
       (3, 13, 'Parametro codice articolo',    1, 130, 0),
       (3, 14, 'Valore parametro codice',      1, 140, 0),
       (3, 15, 'Stagione',                     0, 150, 1)
GO

INSERT INTO MG6W_STATIART (MG6W_INDSTATO, MG6W_DESCR)
VALUES (0, 'Attivo'),
       (1, 'In esaurimento'),
       (2, 'Sospeso'),
       (3, 'Obsoleto')
GO

INSERT INTO CG08_TABVALUTE (CG08_CODICE, CG08_DESCR, CG08_NUMDEC, CG08_CAMBIO)
VALUES ('EURO', 'Euro',              2, 1),
       ('USD',  'Dollaro USA',       2, 1.0842),
       ('CHF',  'Franco svizzero',   2, 0.9731)
GO

-- Two companies: 1 distributes hardware and has a profile, 2 sells home goods and has none yet.

INSERT INTO CG18_DITTE (CG18_CODICE, CG18_RAGSOC)
VALUES (1, 'Casaferro Distribuzione S.r.l.'),
       (2, 'Lumera Casa S.r.l.')
GO

INSERT INTO MG58_DEPOSITI (MG58_DITTA_CG18, MG58_CODDEP, MG58_DESCRDEP, MG58_INDIDEP, MG58_CAPDEP,
                           MG58_LOCDEP, MG58_PROVDEP, MG58_TELNUMDEP, MG58_FAXNUMDEP)
VALUES (1, '01', 'Magazzino centrale',          'Via dell''Industria, 14',     '60027', 'Osimo',        'AN', '071 5550101', '071 5550191'),
       (1, '02', 'Deposito Bologna',            'Via del Lavoro, 72',          '40127', 'Bologna',      'BO', '051 5550102', '051 5550192'),
       (1, '03', 'Deposito Verona Sud',         'Viale delle Nazioni, 9',      '37135', 'Verona',       'VR', '045 5550103', '045 5550193'),
       (1, '04', 'Punto vendita Forlì',         'Corso Garibaldi, 31',         '47121', 'Forlì',        'FC', '0543 555104', NULL),
       (1, '05', 'Deposito e-commerce',         'Via dell''Industria, 16',     '60027', 'Osimo',        'AN', '071 5550105', NULL),
       (1, '06', 'Deposito L''Aquila',          'Nucleo industriale Bazzano',  '67100', 'L''Aquila',    'AQ', '0862 555106', '0862 555196'),
       (1, '07', 'Resi e riparazioni',          'Via dell''Industria, 18',     '60027', 'Osimo',        'AN', NULL,          NULL),
       (1, '08', 'Conto deposito clienti',      NULL,                          NULL,    NULL,           NULL, NULL,          NULL),
       (2, '01', 'Magazzino Lecco',             'Via Promessi Sposi, 3',       '23900', 'Lecco',        'LC', '0341 555201', '0341 555291'),
       (2, '02', 'Negozio Como',                'Via Borgovico, 120',          '22100', 'Como',         'CO', '031 5550202', NULL),
       (2, '03', 'Negozio Varese',              'Via Sacco, 8',                '21100', 'Varese',       'VA', '0332 555203', NULL),
       (2, '04', 'Negozio Monza',               'Via Lecco, 201',              '20900', 'Monza',        'MB', '039 5550204', NULL),
       (2, '05', 'Deposito esterno Erba',       'Via Volta, 55',               '22036', 'Erba',         'CO', '031 5550205', NULL),
       (2, '06', 'Merce in viaggio',            NULL,                          NULL,    NULL,           NULL, NULL,          NULL),
       (2, '07', 'Resi',                        'Via Promessi Sposi, 5',       '23900', 'Lecco',        'LC', NULL,          NULL),
       (2, '08', 'Esposizione fiere',           NULL,                          NULL,    NULL,           NULL, NULL,          NULL)
GO

INSERT INTO MG36_DOCUMENTI (MG36_DITTA_CG18, MG36_CODDOCUM, MG36_DESCRDOC)
SELECT CG18_CODICE, CODICE, DESCR
  FROM CG18_DITTE
 CROSS JOIN (VALUES ('OCW', 'Ordine cliente da web'),
                    ('OCL', 'Ordine cliente'),
                    ('OCF', 'Ordine cliente da fiera'),
                    ('OCA', 'Ordine cliente da agente'),
                    ('PRV', 'Preventivo'),
                    ('DDT', 'Documento di trasporto'),
                    ('FTI', 'Fattura immediata')) AS DOC (CODICE, DESCR)
GO

-- OCF and OCA are customised without a default deposit; PRV and FTI are not customised.
INSERT INTO MG3G_DOCDITTA (MG3G_DITTA_CG18, MG3G_CODDOCUM_MG36, MG3G_DEPDEFAULT_MG58)
VALUES (1, 'OCW', '05'),
       (1, 'OCL', '01'),
       (1, 'DDT', '01'),
       (1, 'OCF', NULL),
       (1, 'OCA', ''),
       (2, 'OCL', '01'),
       (2, 'OCW', NULL)
GO

INSERT INTO MG44_PARMAGLIST (MG44_DITTA_CG18, MG44_FLGVENACQ, MG44_NUMLIST, MG44_DESCLIST, MG44_VALUTA_CG08, MG44_FLGIVACOMPR)
VALUES (1, 0,  1, 'Listino base',               'EURO', 0),
       (1, 0,  2, 'Listino rivenditori',        'EURO', 0),
       (1, 0,  3, 'Listino al pubblico',        'EURO', 1),
       (1, 0,  4, 'Listino export',             'USD',  0),
       (1, 1,  1, 'Acquisti nazionali',         'EURO', 0),
       (1, 1,  2, 'Acquisti estero',            'USD',  0),
       (2, 0,  1, 'Listino negozi',             'EURO', 1),
       (2, 0, 10, 'Listino ingrosso',           'EURO', 0),
       (2, 1,  1, 'Acquisti',                   'EURO', 0)
GO

INSERT INTO MG17_AGENTI (MG17_DITTA_CG18, MG17_CODAGENTE, MG17_DESCRAGENTE)
VALUES (1, 'A01', 'Bassi Ottavio'),
       (1, 'A02', 'Celli Marta'),
       (1, 'A03', 'De Marchis Ugo'),
       (1, 'A04', 'Fabbri Ilaria'),
       (1, 'A05', 'Nanni Corrado'),
       (1, 'A06', 'Zoli Franca'),
       (2, 'B01', 'Riva Tullio'),
       (2, 'B02', 'Corti Nadia')
GO

-- The numbers 1 to 1000, from which the larger tables are made. Dropped at the end.
CREATE TABLE DEMO_NUMERI (N int NOT NULL PRIMARY KEY)
GO

INSERT INTO DEMO_NUMERI (N)
SELECT C.I * 100 + D.I * 10 + U.I + 1
  FROM (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) AS C (I)
 CROSS JOIN (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) AS D (I)
 CROSS JOIN (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) AS U (I)
GO

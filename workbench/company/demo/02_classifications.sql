-- Areas, categories and groupings of customers; suppliers (TIPOCF 1) use some of the same codes.

INSERT INTO MG07_MACROAREE (MG07_DITTA_CG18, MG07_TIPOCF, MG07_MACROAREA, MG07_DESCRMACROAR)
VALUES (1, 0, 'NOR', 'Nord Italia'),
       (1, 0, 'CEN', 'Centro Italia'),
       (1, 0, 'SUD', 'Sud e isole'),
       (1, 0, 'EST', 'Estero'),
       (1, 1, 'NOR', 'Fornitori del nord'),
       (1, 1, 'ASI', 'Fornitori asiatici'),
       (2, 0, 'NOR', 'Lombardia'),
       (2, 0, 'RES', 'Resto d''Italia')
GO

INSERT INTO MG08_AREE (MG08_DITTA_CG18, MG08_TIPOCF_MG07, MG08_MACROAREA_MG07, MG08_AREA, MG08_DESCRAREA)
VALUES (1, 0, 'NOR', 'OVE', 'Nord-Ovest'),
       (1, 0, 'NOR', 'TRI', 'Nord-Est'),
       (1, 0, 'CEN', 'ADR', 'Versante adriatico'),
       (1, 0, 'CEN', 'TIR', 'Versante tirrenico'),
       (1, 0, 'SUD', 'PEN', 'Sud peninsulare'),
       (1, 0, 'SUD', 'ISO', 'Isole'),
       (1, 0, 'EST', 'UEU', 'Unione europea'),
       (1, 1, 'NOR', 'OVE', 'Fornitori piemontesi'),
       (2, 0, 'NOR', 'LAG', 'Laghi'),
       (2, 0, 'NOR', 'MIL', 'Milano e Brianza')
GO

INSERT INTO MG09_ZONE (MG09_DITTA_CG18, MG09_TIPOCF_MG08, MG09_MACROAREA_MG08, MG09_AREA_MG08, MG09_ZONA, MG09_DESCRZONA)
VALUES (1, 0, 'NOR', 'OVE', 'LOM', 'Lombardia'),
       (1, 0, 'NOR', 'OVE', 'PIE', 'Piemonte'),
       (1, 0, 'NOR', 'OVE', 'LIG', 'Liguria'),
       (1, 0, 'NOR', 'TRI', 'VEN', 'Veneto'),
       (1, 0, 'NOR', 'TRI', 'EMR', 'Emilia-Romagna'),
       (1, 0, 'CEN', 'ADR', 'MAR', 'Marche'),
       (1, 0, 'CEN', 'ADR', 'ABR', 'Abruzzo'),
       (1, 0, 'CEN', 'TIR', 'TOS', 'Toscana'),
       (1, 0, 'CEN', 'TIR', 'LAZ', 'Lazio'),
       (1, 0, 'SUD', 'PEN', 'CAM', 'Campania'),
       (1, 0, 'SUD', 'PEN', 'PUG', 'Puglia'),
       (1, 0, 'SUD', 'ISO', 'SIC', 'Sicilia'),
       (1, 0, 'SUD', 'ISO', 'SAR', 'Sardegna'),
       (2, 0, 'NOR', 'LAG', 'COM', 'Lago di Como'),
       (2, 0, 'NOR', 'LAG', 'MAG', 'Lago Maggiore'),
       (2, 0, 'NOR', 'MIL', 'BRI', 'Brianza')
GO

INSERT INTO MG10_MACROCAT (MG10_DITTA_CG18, MG10_TIPOCF, MG10_MACROCAT, MG10_DESCRMACROCAT)
VALUES (1, 0, 'RIV', 'Rivenditori'),
       (1, 0, 'GDO', 'Grande distribuzione'),
       (1, 0, 'PRO', 'Professionisti'),
       (1, 0, 'WEB', 'Clienti web'),
       (1, 1, 'RIV', 'Fornitori rivenditori'),
       (1, 1, 'PRD', 'Produttori'),
       (2, 0, 'RIV', 'Negozi affiliati'),
       (2, 0, 'WEB', 'Privati')
GO

INSERT INTO MG11_CATEG (MG11_DITTA_CG18, MG11_TIPOCF_MG10, MG11_MACROCAT_MG10, MG11_CATEG, MG11_DESCRCAT)
VALUES (1, 0, 'RIV', 'FER', 'Ferramenta'),
       (1, 0, 'RIV', 'COL', 'Colorifici'),
       (1, 0, 'RIV', 'CAS', 'Casalinghi'),
       (1, 0, 'GDO', 'IPE', 'Ipermercati'),
       (1, 0, 'GDO', 'BRI', 'Centri bricolage'),
       (1, 0, 'PRO', 'EDI', 'Imprese edili'),
       (1, 0, 'PRO', 'IDR', 'Idraulici'),
       (1, 0, 'PRO', 'ELE', 'Elettricisti'),
       (1, 0, 'WEB', 'PRV', 'Privati'),
       (2, 0, 'RIV', 'CAS', 'Casalinghi e liste nozze'),
       (2, 0, 'WEB', 'PRV', 'Privati')
GO

INSERT INTO MG12_SOTTOCAT (MG12_DITTA_CG18, MG12_TIPOCF_MG11, MG12_MACROCAT_MG11, MG12_CATEG_MG11, MG12_SOTTOCAT, MG12_DESCRSOTTOCAT)
VALUES (1, 0, 'RIV', 'FER', 'NEG', 'Negozio singolo'),
       (1, 0, 'RIV', 'FER', 'CAT', 'Catena'),
       (1, 0, 'RIV', 'COL', 'NEG', 'Negozio singolo'),
       (1, 0, 'GDO', 'BRI', 'GRS', 'Grandi superfici'),
       (1, 0, 'PRO', 'EDI', 'ART', 'Artigiani'),
       (1, 0, 'PRO', 'EDI', 'IND', 'Imprese industriali')
GO

INSERT INTO MG31_RAGGRCF1 (MG31_DITTA_CG18, MG31_TIPOCF, MG31_RAGGRCF1, MG31_DESCRAGGRCF1)
VALUES (1, 0, 'ORO', 'Fedeltà oro'),
       (1, 0, 'ARG', 'Fedeltà argento'),
       (1, 0, 'BRO', 'Fedeltà bronzo'),
       (2, 0, 'TES', 'Con tessera')
GO

INSERT INTO MG32_RAGGRCF2 (MG32_DITTA_CG18, MG32_TIPOCF, MG32_RAGGRCF2, MG32_DESCRAGGRCF2)
VALUES (1, 0, 'RBA', 'Ricevuta bancaria'),
       (1, 0, 'BON', 'Bonifico anticipato'),
       (1, 0, 'CON', 'Contrassegno')
GO

INSERT INTO MG33_RAGGRCF3 (MG33_DITTA_CG18, MG33_TIPOCF, MG33_RAGGRCF3, MG33_DESCRAGGRCF3)
VALUES (1, 0, 'AUT', 'Consegna con automezzi'),
       (1, 0, 'COR', 'Corriere'),
       (1, 0, 'RIT', 'Ritiro in sede')
GO

-- Articles: brands, discount classes, statistical groups, applications, options, configurator.

INSERT INTO MG64_MARCHE (MG64_DITTA_CG18, MG64_MARCA, MG64_DESCRMARCA)
VALUES (1, 'FVE', 'Ferrovento'), (1, 'LUM', 'Lumicasa'),  (1, 'SAL', 'Saldonero'),
       (1, 'ADO', 'Acquadoro'),  (1, 'DOV', 'Domusviva'), (1, 'VMU', 'Verdemura'),
       (2, 'DOV', 'Domusviva'),  (2, 'LUM', 'Lumicasa')
GO

INSERT INTO MG63_CLASSISC (MG63_DITTA_CG18, MG63_CLASC, MG63_DESCRCLASC)
VALUES (1, 'A', 'Sconto pieno'),   (1, 'B', 'Sconto ridotto'),
       (1, 'C', 'Prezzo netto'),   (2, 'A', 'Sconto stagionale')
GO

INSERT INTO MG74_GRUSTAT1 (MG74_DITTA_CG18, MG74_GRUSTAT1, MG74_DESCRGRUSTAT1)
VALUES (1, 'AR', 'Alta rotazione'), (1, 'MR', 'Media rotazione'), (1, 'BR', 'Bassa rotazione')
GO

INSERT INTO MG75_GRUSTAT2 (MG75_DITTA_CG18, MG75_GRUSTAT2, MG75_DESCRGRUSTAT2)
VALUES (1, 'ITA', 'Produzione italiana'), (1, 'IMP', 'Importazione')
GO

INSERT INTO MG76_GRUSTAT3 (MG76_DITTA_CG18, MG76_GRUSTAT3, MG76_DESCRGRUSTAT3)
VALUES (1, 'P', 'Primavera'), (1, 'E', 'Estate'), (1, 'A', 'Autunno'), (1, 'I', 'Inverno')
GO

INSERT INTO MG77_GRUSTAT4 (MG77_DITTA_CG18, MG77_GRUSTAT4, MG77_DESCRGRUSTAT4)
VALUES (1, 'CAT', 'A catalogo'), (1, 'PRO', 'Solo promozioni')
GO

INSERT INTO MG57_APPLICAZIONI (MG57_DITTA_CG18, MG57_CODAPPLIC, MG57_DESCRAPPLIC)
VALUES (1, 'INT', 'Uso interno'), (1, 'EST', 'Uso esterno'), (1, 'LEG', 'Legno'),
       (1, 'MUR', 'Muratura'),    (2, 'TAV', 'Tavola')
GO

INSERT INTO MG5E_OPZIONI (MG5E_DITTA_CG18, MG5E_OPZIONE, MG5E_DESCR)
VALUES (1, 'BIA', 'Bianco'), (1, 'NER', 'Nero'), (1, 'ROS', 'Rosso'),
       (2, 'BIA', 'Bianco'), (2, 'TOR', 'Tortora')
GO

-- Company 2 has neither configurator variants nor composed article codes.
INSERT INTO MG5F_DIMECONF (MG5F_DITTA_CG18, MG5F_CODICEVAR, MG5F_DESCR_VAR)
VALUES (1, 'A1', 'Finitura'), (1, 'A2', 'Lunghezza'), (1, 'A3', 'Attacco'), (1, 'A12', 'Tensione')
GO

INSERT INTO MG6F_DIMEART (MG6F_DITTA_CG18, MG6F_PROGR, MG6F_DESCR, MG6F_SIZE)
VALUES (1, 1, 'Sottofamiglia', 3), (1, 2, 'Separatore', 1), (1, 3, 'Numero', 4)
GO

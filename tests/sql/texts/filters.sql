-- CongiuntoArticoli: of the article (condition)
 AND (MG66_FAM_MG53 = 'FER') 
GO

-- CongiuntoArticoli: of its descriptions (condition)
 AND (MG87_CODART_MG66 = 'ACC-0028') 
GO

-- CongiuntoArticoli: of its applications (condition)
 AND EXISTS (SELECT   MG72_CODAPPLIC_MG57           FROM     MG72_APPLICART                                   WHERE    MG72_DITTA_CG18     = MG66_DITTA_CG18            AND      MG72_CODART_MG66    = MG66_CODART        AND MG72_CODAPPLIC_MG57 = 'LEG')                           
GO

-- CongiuntoArticoli: of its suppliers (condition)
 AND EXISTS (SELECT   MG73_CLIFOR_CG44                    FROM     MG73_ARTCLIFOR                                 WHERE    MG73_DITTA_CG18     = MG66_DITTA_CG18          AND      MG73_TIPOCF_CG44    = 1                        AND      MG73_CODART_MG66    = MG66_CODART      AND MG73_CLIFOR_CG44 = 4)       
GO

-- CongiuntoArticoli: of its product (condition)
 AND EXISTS (SELECT TOP 1 1          FROM     PD18_ARTPROD PD18_FILTRO          WHERE    PD18_FILTRO.PD18_DITTA_CG18  = MG66_DITTA_CG18            AND     PD18_FILTRO.PD18_CODART_MG66 = MG66_CODART                AND PD18_FILTRO.PD18_INDPROVENIENZA = 1)       
GO

-- DecodificaStatoArticolo
SELECT MG6W_DESCR FROM MG6W_STATIART WITH (NOLOCK) WHERE MG6W_INDSTATO = 1
GO

-- ElencoStatiArticolo
SELECT MG6W_INDSTATO, MG6W_DESCR FROM MG6W_STATIART WITH (NOLOCK) 
GO

-- ContaArticoli
 SELECT COUNT(DISTINCT MG87_CODART_MG66) AS QUANTI, COUNT(*) AS ELENCATI
 FROM VGM19_KBWSPRODUCTS_KELMORIA v 
 WHERE MG87_DITTA_CG18 = 1 AND (MG66_FAM_MG53 = 'FER') 
GO

-- ContaClienti
 SELECT COUNT(*) AS QUANTI, COUNT(Email) AS ELENCATI
 FROM VGM16_KBWSUSERS_KELMORIA
 WHERE CG44_DITTA_CG18 = 1 AND (Citta = 'Forlì')
GO

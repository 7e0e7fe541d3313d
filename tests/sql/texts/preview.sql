-- NomeTabella: customers
 IF EXISTS(select * FROM sys.views where name = 'VGM16_KBWSUSERS_KELMORIA_PERS') 
     select 'VGM16_KBWSUSERS_KELMORIA_PERS' as Tabella  ELSE      select 'VGM16_KBWSUSERS_KELMORIA' as Tabella 
GO

-- NomeTabella: articles
 IF EXISTS(select * FROM sys.views where name = 'VGM19_KBWSPRODUCTS_KELMORIA_PERS') 
     select 'VGM19_KBWSPRODUCTS_KELMORIA_PERS' as Tabella  ELSE      select 'VGM19_KBWSPRODUCTS_KELMORIA' as Tabella 
GO

-- ClientiPubblicati

 select *  
 from VGM16_KBWSUSERS_KELMORIA
 where CG44_DITTA_CG18 = 1 and Email is not NULL  AND (Citta = 'Forlì')
GO

-- ClientiPubblicati: all

 select *  
 from VGM16_KBWSUSERS_KELMORIA
 where CG44_DITTA_CG18 = 1 and Email is not NULL 
GO

-- ArticoliPubblicati

 select v.*  
 from VGM19_KBWSPRODUCTS_KELMORIA v 
 where MG87_DITTA_CG18 = 1 AND (MG66_FAM_MG53 = 'FER') 
GO

-- ArticoliPubblicati: all

 select v.*  
 from VGM19_KBWSPRODUCTS_KELMORIA v 
 where MG87_DITTA_CG18 = 1
GO
